// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneLibrary.h"

#include "companions/scenes/SceneFault.h"
#include "companions/scenes/SceneFile.h"
#include "companions/scenes/SceneTable.h"

#include <functional>
#include <numeric>

namespace {

/// How to take back what was last done to a slot.
struct UndoState
{
    enum Kind { Contents, Protection, Title };

    Kind kind = Contents;
    SceneInfo before;
    std::optional<SceneRecord> contents; ///< for Contents; nothing: the slot was empty
};

/// "#012".
QString numberOf(int slot)
{
    return QStringLiteral("#%1").arg(slot, 3, 10, QLatin1Char('0'));
}

[[noreturn]] void refuse(const QString &message)
{
    throw SceneFault{message};
}

void requireSlot(int slot)
{
    if (slot < 1 || slot > SceneLibrary::SlotCount)
        refuse(QStringLiteral("There is no scene %1.").arg(numberOf(slot)));
}

void requireData(const SceneInfo &info, int slot)
{
    if (!info.hasData)
        refuse(QStringLiteral("Scene %1 is empty.").arg(numberOf(slot)));
}

void requireNotReadOnly(const SceneInfo &info, int slot)
{
    if (info.isReadOnly)
        refuse(QStringLiteral("Scene %1 is read only.").arg(numberOf(slot)));
}

void requireChangeable(const SceneInfo &info, int slot)
{
    requireNotReadOnly(info, slot);
    if (info.isProtected)
        refuse(QStringLiteral("Scene %1 is protected.").arg(numberOf(slot)));
}

QString checkedTitle(const QString &title)
{
    QString clean = title.simplified();
    clean.removeIf([](QChar each) { return each.category() == QChar::Other_Control; });
    if (clean.isEmpty())
        refuse(QStringLiteral("A scene needs a title."));
    if (clean.size() > SceneLibrary::MaximumTitleLength)
        refuse(QStringLiteral("A title can have up to %1 characters.")
                   .arg(SceneLibrary::MaximumTitleLength));
    return clean;
}

} // namespace

struct SceneLibrary::Private
{
    /// Runs the steps of an operation and turns what they throw into `error`.
    static bool attempt(QString *error, const std::function<void()> &steps);
    /// Runs the steps of a command in one transaction; afterwards the listing and the undo states
    /// that they noted hold.
    bool command(QString *error, const std::function<void()> &steps);
    void requireOpen() const;

    void noteContents(int slot) { noted[slot] = {UndoState::Contents, {}, table.read(slot)}; }
    void put(int slot, const SceneInfo &info, const ParameterSnapshot &snapshot);
    void takeBack(int slot, const UndoState &state);
    void noteMove(const QHash<int, int> &slotAfter);

    SceneFile file;
    SceneTable table{file};
    std::map<int, SceneInfo> scenes; ///< of the slots that are not empty
    std::map<int, UndoState> undo;
    std::map<int, UndoState> noted; ///< by the command that is running
    QHash<int, int> movedFrom;      ///< where the scenes were before they were moved, by slot
    QString whyClosed = QStringLiteral("There is no scene library.");
};

bool SceneLibrary::Private::attempt(QString *error, const std::function<void()> &steps)
{
    try {
        steps();
        return true;
    } catch (const SceneFault &fault) {
        if (error)
            *error = fault.message;
    }
    return false;
}

void SceneLibrary::Private::requireOpen() const
{
    if (!file.isOpen())
        refuse(whyClosed);
}

bool SceneLibrary::Private::command(QString *error, const std::function<void()> &steps)
{
    return attempt(error, [&] {
        requireOpen();
        if (!file.readOnlyReason().isEmpty())
            refuse(file.readOnlyReason());
        SceneFile::Transaction transaction(file);
        noted.clear();
        steps();
        std::map<int, SceneInfo> listed = table.list();
        transaction.commit();
        scenes.swap(listed);
        for (auto &[slot, state] : noted)
            undo[slot] = std::move(state);
        if (!noted.empty())
            movedFrom.clear();
    });
}

void SceneLibrary::Private::put(int slot, const SceneInfo &info, const ParameterSnapshot &snapshot)
{
    if (!snapshot.isWhole())
        refuse(QStringLiteral("There are no settings to store."));
    requireChangeable(table.info(slot), slot);
    noteContents(slot);
    table.put(slot, table.record(info, snapshot));
}

void SceneLibrary::Private::takeBack(int slot, const UndoState &state)
{
    const SceneInfo now = table.info(slot);
    if (state.kind == UndoState::Protection) {
        requireNotReadOnly(now, slot);
        table.setProtected(slot, state.before.isProtected);
        return;
    }
    requireChangeable(now, slot);
    if (state.kind == UndoState::Title)
        table.setTitle(slot, state.before.title);
    else if (state.contents)
        table.put(slot, *state.contents);
    else
        table.remove(slot);
}

void SceneLibrary::Private::noteMove(const QHash<int, int> &slotAfter)
{
    const QHash<int, int> earlier = movedFrom;
    for (auto each = slotAfter.begin(); each != slotAfter.end(); ++each) {
        movedFrom[each.value()] = earlier.value(each.key(), each.key());
        undo.erase(each.key());
    }
}

SceneLibrary::SceneLibrary() : d(std::make_unique<Private>()) {}

SceneLibrary::~SceneLibrary() = default;

bool SceneLibrary::open(const QString &fileName, QString *error)
{
    close();
    const bool opened = Private::attempt(&d->whyClosed, [&] {
        d->file.open(fileName);
        d->table.changedElsewhere();
        d->scenes = d->table.list();
    });
    if (opened)
        return true;
    d->file.close();
    if (error)
        *error = d->whyClosed;
    return false;
}

void SceneLibrary::close()
{
    d->file.close();
    d->table.forgetLayouts();
    d->scenes.clear();
    d->undo.clear();
    d->movedFrom.clear();
    d->whyClosed = QStringLiteral("There is no scene library.");
}

bool SceneLibrary::isOpen() const
{
    return d->file.isOpen();
}

QString SceneLibrary::fileName() const
{
    return d->file.name();
}

QString SceneLibrary::readOnlyReason() const
{
    return isOpen() ? d->file.readOnlyReason() : d->whyClosed;
}

bool SceneLibrary::limitSize(qint64 bytes, QString *error)
{
    return Private::attempt(error, [&] {
        d->requireOpen();
        d->file.limitSize(bytes);
    });
}

// Listing ------------------------------------------------------------------------------------

const SceneInfo &SceneLibrary::scene(int slot) const
{
    static const SceneInfo none;
    const auto found = d->scenes.find(slot);
    return found == d->scenes.end() ? none : found->second;
}

bool SceneLibrary::refresh()
{
    bool changed = false;
    Private::attempt(nullptr, [&] {
        if (!isOpen() || !d->table.changedElsewhere())
            return;
        d->scenes = d->table.list();
        // They are about what is no longer there.
        d->undo.clear();
        d->movedFrom.clear();
        changed = true;
    });
    return changed;
}

// Scenes -------------------------------------------------------------------------------------

bool SceneLibrary::store(int slot, const ParameterSnapshot &snapshot, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        SceneInfo info = d->table.info(slot);
        if (!info.hasData)
            info.title = QStringLiteral("Scene %1").arg(slot, 3, 10, QLatin1Char('0'));
        info.stored = QDateTime::currentDateTimeUtc();
        d->put(slot, info, snapshot);
    });
}

std::optional<ParameterSnapshot> SceneLibrary::recall(int slot, QString *error)
{
    std::optional<Scene> scene = read(slot, error);
    return scene ? std::optional(std::move(scene->snapshot)) : std::nullopt;
}

std::optional<SceneLibrary::Scene> SceneLibrary::read(int slot, QString *error)
{
    std::optional<Scene> scene;
    Private::attempt(error, [&] {
        d->requireOpen();
        requireSlot(slot);
        const std::optional<SceneRecord> record = d->table.read(slot);
        requireData(record ? record->info : SceneInfo(), slot);
        auto snapshot = d->table.snapshot(*record);
        if (!snapshot)
            refuse(QStringLiteral("Scene %1 is damaged.").arg(numberOf(slot)));
        scene = Scene{record->info.title, record->info.stored, *std::move(snapshot)};
    });
    return scene;
}

bool SceneLibrary::put(int slot, const Scene &scene, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        d->put(slot, {.title = checkedTitle(scene.title), .stored = scene.stored}, scene.snapshot);
    });
}

bool SceneLibrary::clear(int slot, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireChangeable(info, slot);
        d->noteContents(slot);
        d->table.remove(slot);
    });
}

bool SceneLibrary::rename(int slot, const QString &title, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireChangeable(info, slot);
        d->noted[slot] = {UndoState::Title, info, {}};
        d->table.setTitle(slot, checkedTitle(title));
    });
}

bool SceneLibrary::setProtected(int slot, bool on, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireNotReadOnly(info, slot);
        d->noted[slot] = {UndoState::Protection, info, {}};
        d->table.setProtected(slot, on);
    });
}

bool SceneLibrary::setReadOnly(int slot, bool on, QString *error)
{
    const bool done = d->command(error, [&] {
        requireSlot(slot);
        requireData(d->table.info(slot), slot);
        d->table.setReadOnly(slot, on);
    });
    if (done)
        forgetUndo(slot);
    return done;
}

// Places -------------------------------------------------------------------------------------

bool SceneLibrary::move(int first, int count, int target, QString *error)
{
    const int last = first + count - 1;
    const int lowest = std::min(first, target);
    const int highest = std::max(last, target + count - 1);
    QHash<int, int> slotAfter;
    const bool done = d->command(error, [&] {
        for (const int slot : {first, last, target, target + count - 1})
            requireSlot(slot);
        for (int slot = lowest; slot <= highest; ++slot) {
            requireNotReadOnly(d->table.info(slot), slot);
            const bool isMoved = slot >= first && slot <= last;
            const int aside = target < first ? count : -count;
            slotAfter[slot] = isMoved ? slot + target - first : slot + aside;
        }
        d->table.renumber(slotAfter);
    });
    if (done)
        d->noteMove(slotAfter);
    return done;
}

// Undo ---------------------------------------------------------------------------------------

bool SceneLibrary::canUndo(int slot) const
{
    return d->undo.find(slot) != d->undo.end() || d->movedFrom.contains(slot);
}

bool SceneLibrary::undo(int slot, QString *error)
{
    const auto state = d->undo.find(slot);
    const bool isMove = d->movedFrom.contains(slot);
    const bool done = d->command(error, [&] {
        if (isMove)
            d->table.renumber(d->movedFrom);
        else if (state != d->undo.end())
            d->takeBack(slot, state->second);
        else
            refuse(QStringLiteral("There is nothing to undo for scene %1.").arg(numberOf(slot)));
    });
    if (done && isMove)
        d->movedFrom.clear();
    else if (done)
        d->undo.erase(state);
    return done;
}

void SceneLibrary::forgetUndo(int slot)
{
    d->undo.erase(slot);
    if (d->movedFrom.contains(slot))
        d->movedFrom.clear();
}
