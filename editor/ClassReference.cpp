// SPDX-License-Identifier: MIT
#include "editor/ClassReference.h"

#include "companions/memory/ParameterMemory.h"
#include "console/SimulatedConsole.h"
#include "editor/Appearance.h"
#include "widgets/buttons/CAnimMenu.h"
#include "widgets/forms/FormLoader.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/PropertyNotes.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/GridPanel.h"
#include "widgets/meters/CTimeDisplay.h"

#include <QApplication>
#include <QMetaProperty>
#include <QSaveFile>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr int sampleElement = 2;
constexpr int consoleMilliseconds = 200;
constexpr int sampleDigits = 22;

struct Setting
{
    const char *className;
    const char *property;
    QVariant value;
};

/// What the samples show, of the model that the library ships with.
const QList<Setting> &settings()
{
    static const QList<Setting> all{
        {"CDial", "namedAddress", "02kInputHA/kGain"},
        {"CHADial", "namedAddress", "02kInputHA/kGain"},
        {"C48VDial", "namedAddress", "02kInputHA/k48V"},
        {"COnOffButton", "namedAddress", "02kInputOn/kOn"},
        {"CSelectButton", "namedAddress", "kSelectedChannel/kChannel"},
        {"C48V", "namedAddress", "02kInputHA/k48V"},
        {"CPullDownMenu", "menuItemList", "GATE;DUCKING;COMPRESSOR;EXPANDER"},
        {"CPullDownMenu", "namedAddress", "02kInputDynamics1/kType"},
        {"StateDisplayBit", "namedAddress", "02kInputDCA/kMask"},
        {"StateDisplayWidget", "namedAddress", "02kInputPair/kPair"},
        {"CMeter", "namedAddress", "02kInputMeter/kLevel"},
        {"CPixmapMeter", "namedAddress", "02kHeadAmpMeter/kLevel"},
        {"CThresholdMeter", "stateNamedAddress", "02kInputDynamics1/kOn"},
        {"CThresholdMeter", "namedAddress", "02kInputMeter/kGateReduction"},
        {"CCompCurve", "namedAddress", "02kInputDynamics2/kThreshold"},
        {"CGateCurve", "namedAddress", "02kInputDynamics1/kThreshold"},
        {"CGrid", "valueAsBitMask", false},
        {"CGrid", "namedAddress", "kPatchInInput/kPatchIn"},
        {"FormRepeater", "form", ":/forms/mix-strip.ui"},
        {"FormRepeater", "channels", 3},
    };
    return all;
}

/// Values that show more than the ones that an operator happens to leave behind.
const QList<std::pair<const char *, int>> &values()
{
    static const QList<std::pair<const char *, int>> all{
        {"02kInputOn/kOn", 1},
        {"02kPatchInInput/kPatchIn", sampleElement + 1},
        {"02kHeadAmp/k48V", 1},
        {"02kInputDCA/kMask", 0x25},
        {"00kSelectedChannel/kChannel", sampleElement},
        {"02kInputDynamics1/kOn", 1},
        {"02kInputPair/kPair", 1},
    };
    return all;
}

/// What a container stands around, and what else makes a sample look as it does on a screen.
void fill(QWidget &sample)
{
    if (qobject_cast<GridPanel *>(&sample)) {
        QWidget *grid = WidgetRegistry::find("CGrid")->makeSample(&sample);
        grid->setProperty("valueAsBitMask", false);
        grid->setProperty("namedAddress", "kPatchInInput/kPatchIn");
    } else if (auto *repeater = qobject_cast<FormRepeater *>(&sample)) {
        FormLoader loader;
        repeater->fill(loader, {});
    } else if (auto *blind = qobject_cast<CAnimMenu *>(&sample)) {
        blind->setOpen(true);
    } else if (qobject_cast<CTimeDisplay *>(&sample)) {
        QFont digits = sample.font();
        digits.setPointSize(sampleDigits);
        sample.setFont(digits);
    }
}

/// What all bound controls have is told once.
bool isOfBinding(const QByteArray &name)
{
    static const QByteArrayList names{
        "namedAddress",       "tableId",           "numDefaultKind",
        "undoEnable",         "disableAutoHide",   "memoryAPIValueChange",
        "textualValueChange", "pixmapValueChange", "altAddressMode"};
    return names.contains(name);
}

QString defaultOf(const QMetaProperty &property, const QWidget &widget)
{
    const QVariant value = property.read(&widget);
    if (property.isEnumType())
        return QLatin1StringView(property.enumerator().valueToKey(value.toInt()));
    if (property.typeId() == QMetaType::QColor)
        return value.value<QColor>().isValid() ? value.value<QColor>().name() : QString("none");
    if (property.typeId() == QMetaType::QPixmap)
        return "none";
    return value.toString().isEmpty() ? QString("empty") : value.toString();
}

QString row(const QStringList &cells)
{
    QStringList escaped = cells;
    escaped.replaceInStrings("|", "\\|");
    return "| " + escaped.join(" | ") + " |\n";
}

QString propertyTable(const QWidget &widget, bool ofBinding)
{
    const QMetaObject &meta = *widget.metaObject();
    QString table;
    for (int index = 0; index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        const QString name = QLatin1StringView(property.name());
        if (property.enclosingMetaObject() != &meta || isOfBinding(property.name()) != ofBinding)
            continue;
        table += row({'`' + name + '`', '`' + QString(property.typeName()) + '`',
                      defaultOf(property, widget), propertynotes::of(meta, name)});
    }
    return table.isEmpty() ? table
                           : row({"property", "type", "default", "meaning"})
                                 + row({"---", "---", "---", "---"}) + table + '\n';
}

QString signalList(const QMetaObject &meta, bool ofBinding)
{
    QStringList list;
    for (int index = 0; index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        if (method.methodType() != QMetaMethod::Signal || method.enclosingMetaObject() != &meta
            || isOfBinding(method.name()) != ofBinding)
            continue;
        QStringList arguments;
        for (int at = 0; at < method.parameterCount(); ++at)
            arguments
                << (method.parameterTypeName(at) + ' ' + method.parameterNames().at(at)).trimmed();
        list << QString("`%1(%2)`").arg(QLatin1StringView(method.name()), arguments.join(", "));
    }
    return list.isEmpty() ? QString() : "Signals: " + list.join(", ") + ".\n\n";
}

} // namespace

bool ClassReference::write(const QDir &folder, QString *error)
{
    for (const auto &[name, value] : values()) {
        IMemAPI::TSingleBaseAddress at;
        if (m_memory.resolve(name, 0, at))
            m_memory.writeValue(at.group, at.index, at.element, value, 0);
    }
    QStringList failed;
    if (!folder.mkpath("."))
        failed << folder.path();
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const QString file = folder.filePath(QLatin1StringView(entry.className()) + ".png");
        if (failed.isEmpty() && !picture(entry).save(file))
            failed << file;
    }
    QSaveFile file(folder.filePath("classes.md"));
    const QByteArray bytes = text().toUtf8();
    if (failed.isEmpty()
        && (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()
            || !file.commit()))
        failed << file.fileName();
    if (!failed.isEmpty())
        *error = QString("%1: cannot be written").arg(failed.constFirst());
    return failed.isEmpty();
}

QString ClassReference::text() const
{
    QString text =
        "# Widgets {#widgets}\n\n"
        "Every control that is bound to a parameter has these properties and signals; the "
        "sections of the classes leave them out.\n\n";
    const std::unique_ptr<QWidget> bound(WidgetRegistry::find("CDial")->make(nullptr));
    text += propertyTable(*bound, true) + signalList(*bound->metaObject(), true);
    QString group;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        if (group != QLatin1StringView(entry.group)) {
            group = QLatin1StringView(entry.group);
            text += "## " + group + "\n\n";
        }
        text += section(entry);
    }
    return text;
}

QString ClassReference::section(const WidgetRegistry::Entry &entry) const
{
    const std::unique_ptr<QWidget> widget(entry.make(nullptr));
    const QString name = QLatin1StringView(entry.className());
    const QString base = QLatin1StringView(entry.baseClass());
    const char *const kind = dynamic_cast<TMemProxy *>(widget.get()) ? ", bound to a parameter"
                             : entry.isContainer                     ? ", a container for others"
                                                                     : "";
    const QString derived =
        QString(WidgetRegistry::find(base) ? "A [%1](#widget-%1), with all that it has" : "A `%1`")
            .arg(base);
    return QString("### %1 {#widget-%1}\n\n![%1](%1.png)\n\n%2. %3\n\n%4%5. "
                   "`#include \"%6\"`\n\n")
               .arg(name, QString::fromUtf8(entry.toolTip), QString::fromUtf8(entry.whatsThis),
                    derived, QLatin1StringView(kind), entry.header())
           + propertyTable(*widget, false) + signalList(*entry.metaObject, false);
}

QPixmap ClassReference::picture(const WidgetRegistry::Entry &entry) const
{
    constexpr int margin = 12;
    QWidget ground;
    ground.setPalette(appearance::Panel);
    auto *layout = new QVBoxLayout(&ground);
    layout->setContentsMargins(margin, margin, margin, margin);
    QWidget *sample = entry.makeSample(&ground);
    layout->addWidget(sample, 0, Qt::AlignCenter);
    for (const Setting &setting : settings()) {
        if (qstrcmp(setting.className, entry.className()) == 0)
            sample->setProperty(setting.property, setting.value);
    }
    fill(*sample);
    if (sample->sizeHint().width() < entry.size.width())
        sample->setMinimumSize(entry.size);
    m_memory.bind(&ground, sampleElement);
    // Readings come when the console has gone on a little.
    m_console.step(consoleMilliseconds);
    QApplication::processEvents();
    ground.ensurePolished();
    ground.adjustSize();
    return ground.grab();
}
