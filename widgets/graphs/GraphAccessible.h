// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

/// How a graph speaks to assistive tools: as a chart whose value is what its curve shows, in words.
template<class Graph>
class GraphAccessible : public BoundAccessible
{
public:
    explicit GraphAccessible(Graph &graph)
        : BoundAccessible(&graph, graph, QAccessible::Chart), m_graph(graph)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_graph.inWords() : BoundAccessible::text(kind);
    }

    /// Once per class.
    static bool install()
    {
        QAccessible::installFactory([](const QString &className, QObject *object) {
            auto *graph = className == QLatin1String(Graph::staticMetaObject.className())
                              ? qobject_cast<Graph *>(object)
                              : nullptr;
            return static_cast<QAccessibleInterface *>(graph ? new GraphAccessible(*graph)
                                                             : nullptr);
        });
        return true;
    }

private:
    Graph &m_graph;
};
