// SPDX-License-Identifier: MIT
#include "editor/SceneRow.h"

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "editor/SceneDesk.h"

#include <QDataStream>
#include <QIODevice>

namespace {

QByteArray packed(const SceneLibrary::Scene &scene)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << scene.title << scene.stored << scene.snapshot.layout->description()
           << QList<qint32>(scene.snapshot.values.begin(), scene.snapshot.values.end());
    return bytes;
}

/// Nothing when the bytes are not a packed scene.
std::optional<SceneLibrary::Scene> unpacked(const QByteArray &bytes)
{
    SceneLibrary::Scene scene;
    QByteArray description;
    QList<qint32> values;
    QDataStream stream(bytes);
    stream >> scene.title >> scene.stored >> description >> values;
    auto layout = ParameterLayout::fromDescription(description);
    if (stream.status() != QDataStream::Ok || !layout)
        return {};
    scene.snapshot.layout = std::make_shared<ParameterLayout>(*std::move(layout));
    scene.snapshot.values.assign(values.begin(), values.end());
    return scene;
}

QString changes(int count)
{
    if (count == 0)
        return SceneDesk::tr("nothing was different");
    return count == 1 ? SceneDesk::tr("1 value changed")
                      : SceneDesk::tr("%1 values changed").arg(count);
}

} // namespace

SceneRow::SceneRow(int slot, SceneDesk &desk) : m_desk(desk), m_slot(slot) {}

SceneLibrary &SceneRow::library() const
{
    return m_desk.library();
}

QString SceneRow::numberAndTitle() const
{
    return QString("#%1 %2").arg(m_slot, 3, 10, QLatin1Char('0')).arg(titleText());
}

void SceneRow::store(QString &error)
{
    if (library().store(m_slot, m_desk.memory().snapshot(), &error))
        m_desk.say(SceneDesk::tr("Stored %1").arg(numberAndTitle()));
}

void SceneRow::recall(QString &error)
{
    const auto snapshot = library().recall(m_slot, &error);
    if (!snapshot)
        return;
    const int count =
        m_desk.memory().apply(*snapshot, SceneDesk::tr("Recall %1").arg(numberAndTitle()));
    m_desk.say(SceneDesk::tr("Recalled %1: %2").arg(numberAndTitle(), changes(count)));
}

void SceneRow::clear(QString &error)
{
    if (library().clear(m_slot, &error))
        m_desk.say(SceneDesk::tr("Cleared #%1").arg(m_slot, 3, 10, QLatin1Char('0')));
}

void SceneRow::undo()
{
    QString error;
    if (hasUndo() && !library().undo(m_slot, &error))
        m_desk.say(error);
}

void SceneRow::toggleProtection(QString &error)
{
    library().setProtected(m_slot, !isProtected(), &error);
}

bool SceneRow::isReadOnly() const
{
    return library().scene(m_slot).isReadOnly || !library().readOnlyReason().isEmpty();
}

bool SceneRow::isProtected() const
{
    return library().scene(m_slot).isProtected;
}

bool SceneRow::hasData() const
{
    return library().scene(m_slot).hasData;
}

IMemAPI *SceneRow::memAPI() const
{
    return &m_desk.memory();
}

void SceneRow::clearUndo()
{
    library().forgetUndo(m_slot);
}

void SceneRow::title(QString &text) const
{
    const SceneInfo &scene = library().scene(m_slot);
    text = scene.hasData ? scene.title : SceneDesk::tr("(empty)");
}

bool SceneRow::hasUndo() const
{
    return library().canUndo(m_slot);
}

QDateTime SceneRow::timeStored() const
{
    return library().scene(m_slot).stored.toLocalTime();
}

int SceneRow::titleLimit() const
{
    return SceneLibrary::MaximumTitleLength;
}

void SceneRow::setTitle(const QString &text, QString &error)
{
    library().rename(m_slot, text, &error);
}

QByteArray SceneRow::dragData() const
{
    const auto scene = library().read(m_slot);
    return scene ? packed(*scene) : QByteArray();
}

void SceneRow::storeDragged(const QByteArray &data, QString &error)
{
    if (const auto scene = unpacked(data))
        library().put(m_slot, *scene, &error);
    else
        error = SceneDesk::tr("What was dragged is no scene.");
}

void SceneRow::moveTo(int number, QString &error)
{
    library().move(m_slot, 1, number, &error);
}
