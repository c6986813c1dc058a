// SPDX-License-Identifier: MIT
#include "widgets/binding/Binding.h"

#include "interfaces/ParamStream.h"
#include "interfaces/utilities/NS_Utilities.h"

#include <QRegularExpression>

namespace {

/// The table that marks an on/off parameter, and the maximum at which such a parameter is on at 5.
constexpr int OnOffTable = -3;
constexpr int OnOffFiveMaximum = 5;

QDataStream *streamIn(const Q_UINT8 *data)
{
    return reinterpret_cast<QDataStream *>(const_cast<Q_UINT8 *>(data));
}

int pastedValue(TMemProxy &proxy, const Q_UINT8 *data)
{
    const TParamInfoReader reader(streamIn(data));
    if (!reader.isValid())
        return binding::read(proxy);
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    TParamInfo info = reader.info();
    info.element = at.element;
    const TMemOriginHelper origin(proxy.memAPI(), &proxy);
    // An undo step of its own, whatever was done just before.
    binding::beginGesture(proxy);
    const bool applied = proxy.memAPI()->applyParamInfo(at.group, at.index, info, 0);
    binding::endGesture(proxy);
    return applied ? info.value : binding::read(proxy);
}

int defaultValue(const TMemProxy &proxy, bool alternative, int *unavailable)
{
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    return proxy.memAPI()->readDefault(at.group, at.index, at.element, alternative, unavailable);
}

int alternativeDefaultValue(const TMemProxy &proxy)
{
    int unavailable = 0;
    const int value = defaultValue(proxy, true, &unavailable);
    return unavailable ? defaultValue(proxy, false, nullptr) : value;
}

} // namespace

void binding::attach(TMemProxy &proxy)
{
    proxy.memAPI()->attachProxy(&proxy, proxy.packed(), 0);
}

void binding::detach(TMemProxy &proxy)
{
    if (proxy.isAttached() && ready(proxy))
        proxy.memAPI()->detachProxy(&proxy, proxy.packed());
    proxy.setAttached(false);
}

bool binding::handOverToMainThread(TMemProxy &proxy)
{
    if (NS_Utilities::mainThreadRunning())
        return false;
    if (IMemAPI *memory = proxy.memAPI())
        MAPI_postObserverEvent(memory, &proxy);
    return true;
}

binding::Range binding::range(const TMemProxy &proxy)
{
    const IMemAPI &memory = *proxy.memAPI();
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    return {memory.readMinimum(at.group, at.index, at.element, 0),
            memory.readMaximum(at.group, at.index, at.element, 0)};
}

int binding::read(const TMemProxy &proxy)
{
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    return proxy.memAPI()->readValue(at.group, at.index, at.element, 0, 0);
}

int binding::incomingValue(TMemProxy &proxy, const Q_UINT8 *data, int operation)
{
    switch (operation) {
    case TMemProxyBasic::ResetToDefault: return defaultValue(proxy, false, nullptr);
    case TMemProxyBasic::ResetToAlternativeDefault: return alternativeDefaultValue(proxy);
    case TMemProxyBasic::Paste: return pastedValue(proxy, data);
    case TMemProxyBasic::Copy: {
        const int value = read(proxy);
        TParamInfoWriter(proxy, value, streamIn(data), -1);
        return value;
    }
    default: return read(proxy);
    }
}

int binding::write(TMemProxy &proxy, int value)
{
    IMemAPI *memory = proxy.memAPI();
    if (!memory)
        return value;
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    {
        const TMemOriginHelper origin(memory, &proxy);
        const int token = memory->undoToken(0, 1);
        memory->writeValue(at.group, at.index, at.element, value, token);
    }
    return memory->readValue(at.group, at.index, at.element, 0, 0);
}

void binding::beginGesture(TMemProxy &proxy)
{
    if (ready(proxy))
        proxy.memAPI()->beginGesture(&proxy);
}

void binding::endGesture(TMemProxy &proxy)
{
    if (ready(proxy))
        proxy.memAPI()->endGesture(&proxy);
}

int binding::writeAsOwnStep(TMemProxy &proxy, int value)
{
    beginGesture(proxy);
    const int stored = write(proxy, value);
    endGesture(proxy);
    return stored;
}

binding::Display binding::display(const TMemProxy &proxy, int value, Range bounds)
{
    const int table = proxy.tableId();
    const bool fromZero = table >= 0 && bounds.minimum < 0;
    const int position = fromZero ? static_cast<int>(qint64(value) - bounds.minimum) : value;
    const bool onOffFive = table == OnOffTable && bounds.maximum == OnOffFiveMaximum;
    Display shown;
    proxy.memAPI()->valueText(proxy.element + proxy.elementOffset(), table, shown.text,
                              shown.pixmap, position, onOffFive, proxy.group, proxy.index);
    return shown;
}

QString binding::addressInWords(const QString &namedAddress)
{
    static const QRegularExpression unit(QStringLiteral("^[0-9A-F]{2}(?=k[A-Z])"));
    static const QRegularExpression prefix(QStringLiteral("(^|/)k(?=[A-Z0-9])"));
    static const QRegularExpression seam(
        QStringLiteral("(?<=[a-z])(?=[A-Z0-9])|(?<=[A-Z0-9])(?=[A-Z][a-z])"));
    QString words = namedAddress;
    words.remove(unit);
    words.replace(prefix, QStringLiteral("\\1"));
    words.replace(u'/', u' ').replace(u'_', u' ');
    words.replace(seam, QStringLiteral(" "));
    return words.simplified();
}
