// SPDX-License-Identifier: MIT
#include "console/Housekeeping.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

#include <algorithm>

namespace {

/// One value for some channels.
struct Setting
{
    const char *name;
    int first;
    int last;
    int value;
};

constexpr Setting showSettings[] = {
    {"kInputPair/kPair", 12, 15, 1},
    {"kInputPair/kPair", 44, 47, 1},
    {"kGroupID_Input/kGroupID", 2, 6, 1},
    {"kGroupID_Input/kGroupID", 20, 25, 2},
    {"kMixPair/kPair", 0, 3, 1},
    // Thresholds in tenths of a decibel.
    {"kInputDynamics1/kOn", 0, 11, 1},
    {"kInputDynamics1/kThreshold", 0, 11, -450},
    {"kInputDynamics2/kOn", 0, 31, 1},
    {"kInputDynamics2/kThreshold", 0, 31, -240},
    {"kMixDynamics/kOn", 0, 7, 1},
    {"kMixDynamics/kThreshold", 0, 7, -200},
    {"kMatrixDynamics/kOn", 0, 3, 1},
    {"kMatrixDynamics/kThreshold", 0, 3, -200},
    {"kStereoDynamics/kOn", 0, 0, 1},
    {"kStereoDynamics/kThreshold", 0, 0, -160},
};

} // namespace

Housekeeping::Housekeeping(ParameterMemory &memory)
    : m_memory(memory), m_patch(find("kPatchInInput/kPatchIn")),
      m_connected(find("kBackupInputHA/kHAConnected")),
      m_firstSource(find("kSetupHX612/kHX612Port"))
{
    for (const char *name : {"kInputPair/kPair", "kMixPair/kPair", "kMatrixPair/kPair"})
        addPairs(name);
    const std::optional<Address> ports = find("kHeadAmp/k48V");
    if (!m_patch || !m_connected || !m_firstSource || !ports)
        return;
    m_inputs = std::min(elementsOf(*m_patch), elementsOf(*m_connected));
    m_units = elementsOf(*m_firstSource);
    m_portsPerUnit = elementsOf(*ports) / m_units;
}

void Housekeeping::setUpShow()
{
    for (const Setting &each : showSettings) {
        const std::optional<Address> address = find(QLatin1String(each.name));
        for (int element = each.first; address && element <= each.last; ++element)
            write(*address, element, each.value);
    }
}

int Housekeeping::carryOut()
{
    int changes = tellHeadAmps();
    for (Pairs &pairs : m_pairs)
        changes += alignPairs(pairs);
    return changes;
}

void Housekeeping::addPairs(const QString &name)
{
    const std::optional<Address> address = find(name);
    if (address)
        m_pairs.push_back({*address, std::vector<int>(elementsOf(*address), 0)});
}

std::optional<IMemAPI::TSingleBaseAddress> Housekeeping::find(const QString &name) const
{
    Address address;
    return m_memory.resolve(name, 0, address) ? std::optional(address) : std::nullopt;
}

int Housekeeping::elementsOf(const Address &address) const
{
    for (const ConsoleModel::Parameter &parameter : m_memory.model().parameters()) {
        if (m_memory.model().groupOf(parameter) == address.group
            && parameter.index == address.index)
            return parameter.elements;
    }
    return 0;
}

int Housekeeping::read(const Address &address, int element) const
{
    return m_memory.readValue(address.group, address.index, element, 0, 0);
}

int Housekeeping::write(const Address &address, int element, int value)
{
    if (read(address, element) == value)
        return 0;
    return m_memory.writeValue(address.group, address.index, element, value, 0) >= 0 ? 1 : 0;
}

/// The half that was changed last takes the other along.
int Housekeeping::alignPairs(Pairs &pairs)
{
    int changes = 0;
    for (int half = 0; half + 1 < static_cast<int>(pairs.seen.size()); half += 2) {
        int &left = pairs.seen[half];
        int &right = pairs.seen[half + 1];
        const int now = read(pairs.address, half + 1) != right ? read(pairs.address, half + 1)
                                                               : read(pairs.address, half);
        changes += write(pairs.address, half, now) + write(pairs.address, half + 1, now);
        left = right = now;
    }
    return changes;
}

int Housekeeping::tellHeadAmps()
{
    int changes = 0;
    for (int input = 0; input < m_inputs; ++input)
        changes += write(*m_connected, input, isHeadAmp(read(*m_patch, input)) ? 1 : 0);
    return changes;
}

bool Housekeeping::isHeadAmp(int source) const
{
    for (int unit = 0; source > 0 && unit < m_units; ++unit) {
        const int first = read(*m_firstSource, unit);
        if (first > 0 && source >= first && source < first + m_portsPerUnit)
            return true;
    }
    return false;
}
