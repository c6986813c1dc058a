// SPDX-License-Identifier: MIT
#include "widgets/lists/RowPayload.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>
#include <QRandomGenerator>

namespace {

constexpr quint32 Format = 0x434c5731;

/// Told to nobody outside of this program.
quint64 programToken()
{
    static const quint64 token = QRandomGenerator::system()->generate64();
    return token;
}

template<class... Values>
QByteArray written(const Values &...values)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    (out << ... << values);
    return bytes;
}

struct Header
{
    quint64 list = 0;
    qint64 rows = 0;
};

std::optional<Header> readHeader(const QByteArray &entry)
{
    quint32 format = 0;
    quint64 token = 0;
    Header header;
    QDataStream in(entry);
    in.setVersion(QDataStream::Qt_6_0);
    in >> format >> token >> header.list >> header.rows;
    const bool ours =
        in.status() == QDataStream::Ok && in.atEnd() && format == Format && token == programToken();
    return ours ? std::optional(header) : std::nullopt;
}

} // namespace

quint64 rowpayload::newListId()
{
    static quint64 last = 0;
    return ++last;
}

QByteArray rowpayload::header(quint64 listId, qsizetype rows)
{
    return written(Format, programToken(), listId, qint64(rows));
}

QByteArray rowpayload::entry(const DraggedRow &row)
{
    return written(qint32(row.slot), row.contents);
}

QByteArray rowpayload::encode(const QList<QByteArray> &payload)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    for (const QByteArray &entry : payload)
        out << entry;
    return bytes;
}

std::optional<quint64> rowpayload::listIdOf(const QMimeData *mime)
{
    QDataStream in(mime->data(MimeType));
    in.setVersion(QDataStream::Qt_6_0);
    QByteArray entry;
    in >> entry;
    const auto header = readHeader(entry);
    return header ? std::optional(header->list) : std::nullopt;
}

QList<QByteArray> rowpayload::decode(const QMimeData *mime)
{
    QDataStream in(mime->data(MimeType));
    in.setVersion(QDataStream::Qt_6_0);
    QList<QByteArray> payload;
    while (!in.atEnd()) {
        QByteArray each;
        in >> each;
        const bool whole = payload.isEmpty() ? readHeader(each).has_value() : row(each).has_value();
        if (in.status() != QDataStream::Ok || !whole)
            return {};
        payload.append(each);
    }
    const bool complete =
        !payload.isEmpty() && readHeader(payload.first())->rows == payload.size() - 1;
    return complete ? payload : QList<QByteArray>();
}

std::optional<rowpayload::DraggedRow> rowpayload::row(const QByteArray &entry)
{
    qint32 slot = 0;
    QByteArray contents;
    QDataStream in(entry);
    in.setVersion(QDataStream::Qt_6_0);
    in >> slot >> contents;
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return std::nullopt;
    return DraggedRow{slot, contents};
}
