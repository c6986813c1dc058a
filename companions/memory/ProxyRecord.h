// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <atomic>
#include <vector>

class QWidget;
class TMemProxyBasic;

/// What the memory knows of a proxy (TMemProxyBasic::memoryRecord()). It may outlive the proxy by
/// the rest of a delivery. GUI thread, except `pending` and `next`.
struct alignas(64) ProxyRecord // one line of the cache
{
    explicit ProxyRecord(TMemProxyBasic &owner) : proxy(&owner) {}

    /// Set while an observer event is asked for and not yet taken up.
    std::atomic<bool> pending{false};
    bool batched = false;            ///< waits for its turn in the present delivery
    bool deliveredLive = false;      ///< has meter watches or time code requests
    int givenElement = 0;            ///< what the binder, or the last selection, gave
    ProxyRecord *next = nullptr;     ///< in the list of pending records
    TMemProxyBasic *proxy;           ///< null once the proxy has been released
    const QWidget *widget = nullptr; ///< what the proxy may be besides; null once released
    size_t place = 0;                ///< among all records
    std::vector<size_t> cells;       ///< the numbers of the cells on which it is registered
};
