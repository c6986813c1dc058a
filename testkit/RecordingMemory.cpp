// SPDX-License-Identifier: MIT
#include "testkit/RecordingMemory.h"

#include "interfaces/CSimpleNotifier.h"
#include "testkit/CallNote.h"

using callnote::line;

RecordingMemory::~RecordingMemory()
{
    for (TMemProxy *proxy : std::as_const(m_bound)) {
        proxy->setAttached(false);
        proxy->setMemAPI(nullptr);
    }
}

RecordingMemory::Parameter &RecordingMemory::at(int group, int index, int element)
{
    return m_parameters[packedAddress(qint16(group), qint16(index), qint16(element))];
}

const RecordingMemory::Parameter &RecordingMemory::look(int group, int index, int element) const
{
    static const Parameter none;
    const auto found =
        m_parameters.find(packedAddress(qint16(group), qint16(index), qint16(element)));
    return found == m_parameters.end() ? none : found->second;
}

void RecordingMemory::bind(TMemProxy &proxy, int group, int index, int element, int offset)
{
    at(group, index, element);
    proxy.group = qint16(group);
    proxy.index = qint16(index);
    proxy.element = qint16(element);
    proxy.setElementOffset(qint16(offset));
    proxy.setMemAPI(this);
    proxy.setAttached(true);
    remember(&proxy);
    proxy.connectMemAPI();
}

void RecordingMemory::remember(TMemProxy *proxy)
{
    if (proxy && !m_bound.contains(proxy))
        m_bound.append(proxy);
}

QStringList RecordingMemory::take()
{
    return std::exchange(m_calls, {});
}

QStringList RecordingMemory::take(const QStringList &words)
{
    return callnote::filter(take(), words);
}

void RecordingMemory::note(const QString &call) const
{
    m_calls.append(call);
}

void RecordingMemory::attachProxy(TMemProxyBasic *proxy, quint32 packed, int reserved)
{
    remember(dynamic_cast<TMemProxy *>(proxy));
    note(line("attachProxy", packed, reserved));
}

void RecordingMemory::detachProxy(TMemProxyBasic *, quint32 packed)
{
    note(line("detachProxy", packed));
}

void RecordingMemory::releaseProxy(TMemProxyBasic *proxy)
{
    m_bound.removeIf([proxy](TMemProxy *bound) { return bound == proxy; });
    note(line("releaseProxy"));
}

void RecordingMemory::postObserverEvent(TMemProxyBasic *)
{
    ++observerEvents;
}

void RecordingMemory::namedAddressChanged(TMemProxy *)
{
    note(line("namedAddressChanged"));
}

void RecordingMemory::selectAltAddress(TMemProxy *, int element)
{
    note(line("selectAltAddress", element));
}

int RecordingMemory::readMinimum(int group, int index, int element, int) const
{
    note(line("readMinimum", group, index, element));
    return look(group, index, element).minimum;
}

int RecordingMemory::readMaximum(int group, int index, int element, int) const
{
    note(line("readMaximum", group, index, element));
    return look(group, index, element).maximum;
}

int RecordingMemory::readValue(int group, int index, int element, int, int) const
{
    note(line("readValue", group, index, element));
    return look(group, index, element).value;
}

int RecordingMemory::readDefault(int group, int index, int element, bool alternative,
                                 int *unavailable) const
{
    note(line("readDefault", group, index, element, int(alternative)));
    const Parameter &parameter = look(group, index, element);
    if (unavailable)
        *unavailable = alternative && !parameter.hasAlternative;
    return alternative ? parameter.alternativeDefault : parameter.plainDefault;
}

int RecordingMemory::writeValue(int group, int index, int element, int value, int undoToken)
{
    note(callnote::write(group, index, element, value, undoToken));
    Parameter &parameter = at(group, index, element);
    parameter.value = qBound(parameter.minimum, value, parameter.maximum);
    return Ok;
}

bool RecordingMemory::applyParamInfo(int group, int index, TParamInfo &info, int)
{
    note(line("applyParamInfo", group, index, info.element) + line(" =", info.value));
    return acceptsPaste;
}

int RecordingMemory::stepValue(const TMemProxy *, int value, Step step) const
{
    note(line("stepValue", value, int(step)));
    return steppedValue;
}

void RecordingMemory::valueText(int element, int tableId, QString &text, QPixmap &pixmap, int value,
                                bool onOffFive, int group, int index) const
{
    note(line("valueText", element, tableId, value, int(onOffFive), group, index));
    text = QStringLiteral("<%1>").arg(value);
    pixmap = pictureOfValue;
}

void RecordingMemory::setNumberContext(const TMemProxy *)
{
    note(line("setNumberContext"));
}

int RecordingMemory::numberToValue(float number, int tableId) const
{
    note(line("numberToValue", number, tableId));
    return typedValue;
}

int RecordingMemory::undoToken(int kind, int automatic)
{
    note(line("undoToken", kind, automatic));
    return token;
}

void RecordingMemory::beginGesture(TMemProxyBasic *)
{
    note(line("beginGesture"));
}

void RecordingMemory::endGesture(TMemProxyBasic *)
{
    note(line("endGesture"));
}

std::unique_ptr<IUndoRecord> RecordingMemory::openUndoRecord(const QString &)
{
    note(line("openUndoRecord"));
    return nullptr;
}

void RecordingMemory::commitUndoRecord(std::unique_ptr<IUndoRecord>)
{
    note(line("commitUndoRecord"));
}

QObject *RecordingMemory::blinkClock(bool *present, int)
{
    if (present)
        *present = lit;
    return this;
}

bool RecordingMemory::connectApiSignal(bool on, const char *signal, QObject *, const char *slot)
{
    note(line("connectApiSignal", int(on)) + u' ' + QLatin1String(signal) + u' '
         + QLatin1String(slot));
    return true;
}

void RecordingMemory::setMeterWatch(bool on, TMemProxyBasic *, int group, int index, int element)
{
    note(line("setMeterWatch", int(on), group, index, element));
}

const quint16 *RecordingMemory::meterTableById(int tableId, int *count, int) const
{
    const auto table = meterTables.find(tableId);
    const bool found = table != meterTables.end();
    if (count)
        *count = found ? int(table->second.size()) : 0;
    return found ? table->second.data() : nullptr;
}

void RecordingMemory::requestTimecode(int count, TMemProxyBasic *)
{
    note(line("requestTimecode", count));
}

void RecordingMemory::alert(int group, int index, int element)
{
    note(line("alert", group, index, element));
}

CSimpleNotifier *RecordingMemory::createNotifier(QObject *, const QString &names, int selector,
                                                 const char *slot, CSimpleNotifier *, void *)
{
    note(QStringLiteral("createNotifier ") + names + line("", selector) + QLatin1String(slot));
    return nullptr;
}

CSimpleNotifier *RecordingMemory::createNotifier(QObject *, const TSingleAddress *address,
                                                 int selector, const char *slot, CSimpleNotifier *,
                                                 void *)
{
    note(line("createNotifier", address->group, address->index, address->element, selector)
         + QLatin1String(slot));
    return nullptr;
}
