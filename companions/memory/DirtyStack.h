// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

/// A lock-free list into which any thread pushes and which one thread takes as a whole. Intrusive:
/// a node carries its `next`, and whoever pushes it makes sure, with a flag of its own, that it is
/// in the list at most once. Because nodes are never taken singly, there is no ABA problem.
template<typename Node>
class DirtyStack
{
public:
    /// True when the list was empty. Any thread.
    bool push(Node &node)
    {
        Node *head = m_head.load(std::memory_order_relaxed);
        do {
            node.next = head;
        } while (!m_head.compare_exchange_weak(head, &node, std::memory_order_release,
                                               std::memory_order_relaxed));
        return !head;
    }

    /// Everything pushed so far, linked in the order of pushing; null when there is nothing.
    Node *takeAll()
    {
        Node *node = m_head.exchange(nullptr, std::memory_order_acquire);
        Node *reversed = nullptr;
        while (node) {
            Node *following = node->next;
            node->next = reversed;
            reversed = node;
            node = following;
        }
        return reversed;
    }

private:
    std::atomic<Node *> m_head{nullptr};
};
