// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRules.h"

#include "interfaces/TMemProxy.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/buttons/CSelectButton.h"
#include "widgets/buttons/StateDisplayBit.h"
#include "widgets/buttons/StateDisplayWidget.h"
#include "widgets/controls/CDial.h"
#include "widgets/lists/CGrid.h"
#include "widgets/meters/CPixmapMeter.h"
#include "widgets/meters/CThresholdMeter.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <optional>

namespace {

constexpr int HexDigits = 2;
constexpr int LampBits = 32;
/// Up to here a parameter's values are a choice, each with a picture of its own; above they are steps
/// of a scale, which may share one.
constexpr qint64 MostChoices = 16;

QString tr(const char *source)
{
    return QCoreApplication::translate("FormCheck", source);
}

/// The parameter that a control is bound to.
struct Parameter
{
    IMemAPI::TSingleBaseAddress at;
    int minimum = 0;
    int maximum = 0;

    qint64 values() const { return qint64(maximum) - minimum + 1; }
};

/// All select keys stand at the one parameter that holds the selected channel.
int elementFor(const CheckedWidget &widget, int element)
{
    return widget.as<CSelectButton>() ? 0 : element;
}

std::optional<Parameter> parameterOf(const CheckedWidget &widget, int element,
                                     const FormConsole &console)
{
    Parameter found;
    const QString name = widget.text("namedAddress");
    if (!console.memory || !console.names || name.isEmpty()
        || console.names->lookUp(name, elementFor(widget, element), found.at)
               != IParameterNames::Found)
        return {};
    const auto [group, at, index] = found.at;
    found.minimum = console.memory->readMinimum(group, index, at, 0);
    found.maximum = console.memory->readMaximum(group, index, at, 0);
    return found;
}

/// Whether the names of a list are all known; each one after the first is led by how many channels
/// it serves.
bool knowsNames(const CheckedWidget &widget, const char *property, const QString &list,
                const IParameterNames &names)
{
    static const QRegularExpression counted("^[0-9A-F]{2}.");
    static const QRegularExpression unit("^[0-9A-F]{2}");
    const QStringList entries = list.split(u';');
    for (qsizetype place = 0; place < entries.size(); ++place) {
        QString name = entries[place].trimmed();
        if (place > 0 && !counted.match(name).hasMatch()) {
            widget.report(FormFinding::List, property,
                          tr("\"%1\" is not led by its number of channels").arg(name));
            return false;
        }
        name.remove(0, place > 0 ? HexDigits : 0);
        IMemAPI::TSingleBaseAddress at;
        if (names.lookUp(name, 0, at) != IParameterNames::UnknownName)
            continue;
        const QString nearest = names.nearestName(name);
        const QString lead = unit.match(name).captured();
        widget.report(FormFinding::Address, property, tr("no parameter \"%1\"").arg(name),
                      nearest.isEmpty() ? nearest : lead + nearest);
        return false;
    }
    return true;
}

void checkAddress(const CheckedWidget &widget, const char *property, int element,
                  const IParameterNames &names)
{
    const QString list = widget.text(property);
    IMemAPI::TSingleBaseAddress at;
    if (list.isEmpty() || !knowsNames(widget, property, list, names))
        return;
    if (names.lookUp(list, element, at) == IParameterNames::NoSuchElement)
        widget.report(FormFinding::Address, property,
                      tr("\"%1\" has no element %2").arg(list).arg(element));
}

// Pictures for values --------------------------------------------------------------------------

void report(const CheckedWidget &widget, const char *property, const QString &reason)
{
    widget.report(FormFinding::Rows, property, reason);
}

// More pictures than values are common: one strip serves knobs of all ranges.
void checkDial(const CheckedWidget &widget, const CDial &dial, const Parameter &parameter)
{
    const int rows = dial.nSubImages() - (dial.disabledImageIndex() >= 0 ? 1 : 0);
    if (!widget.writes("combinedImage") || parameter.values() < 2)
        return;
    if (rows < 2)
        report(widget, "nSubImages", tr("the knob has one picture for all of its values"));
    else if (parameter.values() <= MostChoices && rows < parameter.values())
        report(widget, "nSubImages",
               tr("%1 pictures for %2 values").arg(rows).arg(parameter.values()));
}

void checkKey(const CheckedWidget &widget, const COnOffButton &key, const Parameter &parameter)
{
    const int value = key.boolClipValue() - 1;
    if (value >= 0 && (value < parameter.minimum || value > parameter.maximum))
        report(widget, "boolClipValue",
               tr("the parameter has no value %1, only %2 to %3")
                   .arg(value)
                   .arg(parameter.minimum)
                   .arg(parameter.maximum));
}

void checkMenu(const CheckedWidget &widget, const Parameter &parameter)
{
    const bool pictures = widget.writes("combinedImage");
    const qint64 items = widget.text("menuItemList").split(u';', Qt::SkipEmptyParts).size();
    if (items != parameter.values() && widget.writes("menuItemList"))
        report(widget, "menuItemList",
               tr("%1 items for %2 values").arg(items).arg(parameter.values()));
    const int rows = widget.number("nSubImages");
    if (pictures && rows != parameter.values())
        report(widget, "nSubImages",
               tr("%1 pictures for %2 values").arg(rows).arg(parameter.values()));
}

void checkState(const CheckedWidget &widget, const StateDisplayWidget &display,
                const Parameter &parameter)
{
    const int rows = display.nSubImages();
    const qint64 needed = display.booleanLogic() ? 2 : qint64(parameter.maximum) + 1;
    if (widget.writes("combinedImage") && rows < needed)
        report(widget, "nSubImages", tr("%1 pictures for %2 states").arg(rows).arg(needed));
    if (display.booleanLogic()
        && (display.cmpValue() < parameter.minimum || display.cmpValue() > parameter.maximum))
        report(widget, "cmpValue", tr("the parameter has no value %1").arg(display.cmpValue()));
}

void checkLamps(const CheckedWidget &widget, const StateDisplayBit &lamps,
                const Parameter &parameter, const IMemAPI &memory)
{
    const int count = lamps.nSubImages();
    if (lamps.multiMode()) {
        const auto [group, element, index] = parameter.at;
        for (int lamp = 0; lamp < count; ++lamp) {
            if (memory.parameterExists(group, index + lamp, element))
                continue;
            report(widget, "nSubImages", tr("there is no parameter for lamp %1").arg(lamp + 1));
            return;
        }
        return;
    }
    const qint64 lit = parameter.minimum < 0 ? ~quint32(0) : parameter.maximum;
    const bool dark = count > LampBits || (count > 0 && (lit >> (count - 1)) == 0);
    if (dark)
        report(widget, "nSubImages", tr("lamp %1 is never lit").arg(count));
}

void checkGrid(const CheckedWidget &widget, const CGrid &grid, const Parameter &parameter)
{
    if (grid.multiMode())
        return;
    const int fields = grid.fields();
    const char *const property =
        grid.orientation() == CGrid::ChannelsAcross ? "horCount" : "verCount";
    if (grid.valueAsBitMask() && fields > LampBits)
        report(widget, property, tr("%1 fields for %2 bits").arg(fields).arg(LampBits));
    else if (!grid.valueAsBitMask() && fields > parameter.maximum)
        report(widget, property,
               tr("%1 fields for values up to %2").arg(fields).arg(parameter.maximum));
}

/// A meter's table, and that there is a picture for each of its thresholds and for `more` states.
void checkTable(const CheckedWidget &widget, const char *property, int more, const IMemAPI &memory)
{
    const int id = widget.number(property);
    int count = 0;
    if (id == 0)
        return;
    if (!memory.meterTableById(id, &count, 0)) {
        widget.report(FormFinding::Address, property, tr("there is no meter table %1").arg(id));
        return;
    }
    const int rows = widget.number("nSubImages");
    if (widget.writes("combinedImage") && rows < count + more)
        report(widget, "nSubImages", tr("%1 pictures for %2 states").arg(rows).arg(count + more));
}

} // namespace

void formrules::checkAddresses(const CheckedWidget &widget, int element,
                               const IParameterNames &names)
{
    if (!widget.as<TMemProxy>())
        return;
    element = elementFor(widget, element);
    const auto *grid = widget.as<CGrid>();
    const int last = grid ? qMax(0, grid->channels() - 1) : element;
    checkAddress(widget, "namedAddress", last, names);
    for (const FormObject::Property &property : widget.written()) {
        if (property.name.endsWith(QLatin1StringView("NamedAddress")))
            checkAddress(widget, property.name.toUtf8(), element, names);
    }
}

void formrules::checkRange(const CheckedWidget &widget, int element, const FormConsole &console)
{
    if (!console.memory)
        return;
    if (widget.as<CPixmapMeter>())
        checkTable(widget, "meterTableId", 1, *console.memory);
    else if (widget.as<CThresholdMeter>())
        checkTable(widget, "meterThresholdTableId", 0, *console.memory);
    IMemAPI::TXtraInfo extra{widget.text("xtraInfo")};
    if (!extra.text.isEmpty() && console.memory->resolveXtraInfo(extra) < 0)
        widget.report(FormFinding::Address, "xtraInfo", tr("\"%1\" leads nowhere").arg(extra.text));

    const std::optional<Parameter> parameter = parameterOf(widget, element, console);
    if (!parameter)
        return;
    if (const auto *dial = widget.as<CDial>())
        checkDial(widget, *dial, *parameter);
    else if (const auto *key = widget.as<COnOffButton>())
        checkKey(widget, *key, *parameter);
    else if (widget.as<CPullDownMenu>())
        checkMenu(widget, *parameter);
    else if (const auto *state = widget.as<StateDisplayWidget>())
        checkState(widget, *state, *parameter);
    else if (const auto *lamps = widget.as<StateDisplayBit>())
        checkLamps(widget, *lamps, *parameter, *console.memory);
    else if (const auto *grid = widget.as<CGrid>())
        checkGrid(widget, *grid, *parameter);
}
