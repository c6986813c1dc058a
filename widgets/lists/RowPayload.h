// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

class QMimeData;

/// What is dragged from a list: a header entry, which says from which list of which running program,
/// and an entry for each row. Whatever does not come from this program reads as nothing.
namespace rowpayload {

constexpr char MimeType[] = "application/x-console-library-rows";

struct DraggedRow
{
    int slot = 0;
    QByteArray contents;
};

/// A number for a list that no other list of this program has.
quint64 newListId();

QByteArray header(quint64 listId, qsizetype rows);
QByteArray entry(const DraggedRow &row);
/// The mime data's bytes for a payload.
QByteArray encode(const QList<QByteArray> &payload);

/// The id in the header of a drag of this program; empty for anything else.
std::optional<quint64> listIdOf(const QMimeData *mime);
/// The payload, checked entry by entry; empty unless all of it is whole.
QList<QByteArray> decode(const QMimeData *mime);
/// The row of one entry; empty when the entry is none.
std::optional<DraggedRow> row(const QByteArray &entry);

} // namespace rowpayload
