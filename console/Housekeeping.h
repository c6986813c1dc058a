// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <optional>
#include <vector>

class ParameterMemory;
class QString;

/// What a console sees to by itself, whoever changed what: both halves of a stereo pair are paired or
/// neither is, and an input is told whether the source that it is patched to is a head amp's.
/// Blocks that the model does not have are left out. Not thread-safe.
class Housekeeping
{
public:
    /// `memory` has its model, and outlives this.
    explicit Housekeeping(ParameterMemory &memory);

    /// What the console starts its show with: stereo instruments in pairs, choirs in groups, gates and
    /// compressors at work.
    void setUpShow();

    /// Puts in order what is not. Returns how many values were changed.
    int carryOut();

private:
    using Address = IMemAPI::TSingleBaseAddress;

    /// One kind of channel: its pair parameter, and what was last seen there.
    struct Pairs
    {
        Address address;
        std::vector<int> seen;
    };

    void addPairs(const QString &name);
    std::optional<Address> find(const QString &name) const;
    int elementsOf(const Address &address) const;
    int read(const Address &address, int element) const;
    int write(const Address &address, int element, int value);
    int alignPairs(Pairs &pairs);
    int tellHeadAmps();
    bool isHeadAmp(int source) const;

    ParameterMemory &m_memory;
    std::vector<Pairs> m_pairs;
    std::optional<Address> m_patch;
    std::optional<Address> m_connected;
    std::optional<Address> m_firstSource;
    int m_inputs = 0;
    int m_units = 0;
    int m_portsPerUnit = 0;
};
