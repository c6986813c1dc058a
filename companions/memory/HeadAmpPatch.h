// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <optional>

class NameIndex;
class ParameterStore;

/// Works out which phantom-power parameter belongs to an input channel: the channel's patch names a
/// source, each head-amp unit says at which source its first port is, and the parameters of the
/// ports of all units follow one another. GUI thread.
class HeadAmpPatch
{
public:
    HeadAmpPatch(const NameIndex &names, const ParameterStore &store);

    /// Reads "element,index", two decimal numbers: where the parameters of the ports begin, and
    /// their index. An empty second number, or none, leaves the index to the model ("0" is the
    /// element 0).
    static bool parse(IMemAPI::TXtraInfo &info);

    /// The phantom-power parameter of input `channel`; negative bases are the model's own. Nothing
    /// when the channel is not patched to a port of a unit that this console may operate.
    std::optional<IMemAPI::TSingleBaseAddress> phantomAddress(int channel, int baseElement,
                                                              int baseIndex) const;

private:
    using Address = IMemAPI::TSingleBaseAddress;
    int read(const Address &address, int element) const;

    const ParameterStore &m_store;
    std::optional<Address> m_patch;
    std::optional<Address> m_firstSource;
    std::optional<Address> m_host;
    std::optional<Address> m_phantom;
    int m_units = 0;
    int m_portsPerUnit = 0;
};
