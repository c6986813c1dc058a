// SPDX-License-Identifier: MIT
#include "companions/memory/HeadAmpPatch.h"

#include "companions/memory/NameIndex.h"
#include "companions/memory/ParameterStore.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace {

constexpr int OwnHost = 0; ///< the host number that stands for this console

std::optional<IMemAPI::TSingleBaseAddress> known(const NameIndex &names, const char *name)
{
    const NameIndex::Result result = names.resolve(QLatin1String(name), 0);
    if (result.outcome != NameIndex::Found)
        return {};
    return result.address;
}

} // namespace

HeadAmpPatch::HeadAmpPatch(const NameIndex &names, const ParameterStore &store)
    : m_store(store), m_patch(known(names, "kPatchInInput/kPatchIn")),
      m_firstSource(known(names, "kSetupHX612/kHX612Port")),
      m_host(known(names, "kHX612Host/kHX612HostID")), m_phantom(known(names, "kHeadAmp/k48V"))
{
    if (!m_firstSource || !m_phantom)
        return;
    const auto elements = [&](const Address &address) {
        return static_cast<int>(store.entry(address.group, address.index).elements);
    };
    m_units = elements(*m_firstSource);
    m_portsPerUnit = elements(*m_phantom) / m_units;
}

bool HeadAmpPatch::parse(IMemAPI::TXtraInfo &info)
{
    static const QRegularExpression form(
        QStringLiteral("\\A\\s*(\\d{1,4})\\s*(?:,\\s*(\\d{1,4})?\\s*)?\\z"));
    const QRegularExpressionMatch match = form.match(info.text);
    if (!match.hasMatch())
        return false;
    info.baseElement = match.captured(1).toShort();
    info.baseIndex = match.hasCaptured(2) ? match.captured(2).toShort() : qint16(-1);
    return true;
}

int HeadAmpPatch::read(const Address &address, int element) const
{
    const ValueCell *cell = m_store.cell(address.group, address.index, element);
    return cell ? cell->value.load(std::memory_order_acquire) : 0;
}

std::optional<IMemAPI::TSingleBaseAddress> HeadAmpPatch::phantomAddress(int channel,
                                                                        int baseElement,
                                                                        int baseIndex) const
{
    if (!m_patch || !m_units || (m_host && read(*m_host, 0) != OwnHost))
        return {};
    const int source = read(*m_patch, channel);
    for (int unit = 0; source > 0 && unit < m_units; ++unit) {
        const int first = read(*m_firstSource, unit);
        const int port = source - first;
        if (first <= 0 || port < 0 || port >= m_portsPerUnit)
            continue;
        Address address = *m_phantom;
        address.element =
            static_cast<qint16>(std::max(baseElement, 0) + unit * m_portsPerUnit + port);
        if (baseIndex >= 0)
            address.index = static_cast<qint16>(baseIndex);
        if (m_store.cell(address.group, address.index, address.element))
            return address;
    }
    return {};
}
