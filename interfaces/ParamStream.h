// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TParamInfo.h"

#include <QDataStream>

class TMemProxy;

/// The form of a copied parameter in a stream: a mark, group, element and index as signed 16-bit
/// numbers, the value as a signed 32-bit number, all in the stream's byte order.
namespace paramstream {
/// What every record begins with.
constexpr quint32 Mark = 0x43505031;
} // namespace paramstream

/// Writes one parameter into a copy stream: the proxy's address and `value`. `index` replaces the
/// proxy's own index unless it is -1.
class TParamInfoWriter
{
public:
    /// Writes nothing without a stream.
    TParamInfoWriter(TMemProxy &proxy, int value, QDataStream *stream, short index);
    /// Writes `info` as it is: for proxies that serve parameters at several addresses.
    TParamInfoWriter(const TParamInfo &info, QDataStream *stream)
    {
        if (stream)
            *stream << paramstream::Mark << info.group << info.element << info.index << info.value;
    }
};

/// Reads one parameter from a copy stream. A stream that holds something else, or ends early, gives
/// an invalid record.
class TParamInfoReader
{
public:
    /// Reads at once; without a stream the record is invalid.
    explicit TParamInfoReader(QDataStream *stream)
    {
        if (!stream)
            return;
        quint32 mark = 0;
        *stream >> mark >> m_info.group >> m_info.element >> m_info.index >> m_info.value;
        m_valid = stream->status() == QDataStream::Ok && mark == paramstream::Mark;
    }

    /// Whether a whole record was there.
    bool isValid() const { return m_valid; }
    /// What was read; without meaning when invalid.
    const TParamInfo &info() const { return m_info; }

private:
    TParamInfo m_info;
    bool m_valid = false;
};
