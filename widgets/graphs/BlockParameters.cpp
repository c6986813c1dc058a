// SPDX-License-Identifier: MIT
#include "widgets/graphs/BlockParameters.h"

#include "interfaces/TMemProxy.h"
#include "widgets/binding/Binding.h"

#include <algorithm>

namespace {

/// Stands for the parameter's own table.
constexpr int OwnTable = 0;

quint32 packed(const TMemProxy &proxy, qint16 index)
{
    return packedAddress(proxy.group, index, proxy.element);
}

} // namespace

qint16 blockparameters::Reading::limited() const
{
    return std::max(minimum, std::min(value, maximum));
}

void blockparameters::attach(TMemProxy &proxy, std::span<const qint16> indices)
{
    for (const qint16 index : indices)
        proxy.memAPI()->attachProxy(&proxy, packed(proxy, index), 0);
}

void blockparameters::detach(TMemProxy &proxy, std::span<const qint16> indices)
{
    if (proxy.isAttached() && binding::ready(proxy)) {
        for (const qint16 index : indices)
            proxy.memAPI()->detachProxy(&proxy, packed(proxy, index));
    }
    proxy.setAttached(false);
}

blockparameters::Reading blockparameters::read(const TMemProxy &proxy, int index)
{
    const IMemAPI &memory = *proxy.memAPI();
    return {static_cast<qint16>(memory.readMinimum(proxy.group, index, proxy.element, 0)),
            static_cast<qint16>(memory.readMaximum(proxy.group, index, proxy.element, 0)),
            readValue(proxy, index)};
}

qint16 blockparameters::readValue(const TMemProxy &proxy, int index)
{
    return static_cast<qint16>(proxy.memAPI()->readValue(proxy.group, index, proxy.element, 0, 0));
}

QString blockparameters::text(const TMemProxy &proxy, int index)
{
    const IMemAPI &memory = *proxy.memAPI();
    const int minimum = memory.readMinimum(proxy.group, index, proxy.element, 0);
    const int value = memory.readValue(proxy.group, index, proxy.element, 0, 0);
    QString text;
    QPixmap picture;
    memory.valueText(proxy.element + proxy.elementOffset(), OwnTable, text, picture,
                     value - std::min(minimum, 0), false, proxy.group, index);
    return text;
}
