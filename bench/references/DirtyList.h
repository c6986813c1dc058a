// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <atomic>

/// The least that a delivery of changes across threads can be: a flag per receiver, a lock-free list
/// of the receivers whose flag was clear, and one posted event when the list was empty. Addresses,
/// ranges and lifetimes are nobody's concern here.
class DirtyList : public QObject
{
public:
    struct Receiver
    {
        virtual ~Receiver() = default;
        /// There is a new value. GUI thread.
        virtual void receive() = 0;

        std::atomic<int> value{0};
        std::atomic<bool> dirty{false};
        Receiver *next = nullptr;
    };

    /// Any thread.
    void change(Receiver &receiver, int value)
    {
        receiver.value.store(value, std::memory_order_release);
        // The flag is set and cleared by exchanges only, lest a change be lost between the two.
        if (!receiver.dirty.exchange(true, std::memory_order_acq_rel))
            push(receiver);
    }

protected:
    bool event(QEvent *event) override;

private:
    void push(Receiver &receiver);

    std::atomic<Receiver *> m_head{nullptr};
};
