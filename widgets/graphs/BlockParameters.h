// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <span>

class QString;
class TMemProxy;

/// The parameters of one block that a graph shows together: group and element are the proxy's, the
/// index is each one's own. The proxy must have a memory. GUI thread.
namespace blockparameters {

/// A parameter's bounds and stored value, as a graph keeps them.
struct Reading
{
    qint16 minimum = 0;
    qint16 maximum = 0;
    qint16 value = 0;

    /// The value held inside the bounds.
    qint16 limited() const;
    friend bool operator==(const Reading &, const Reading &) = default;
};

/// Registers the proxy on each of them, and unregisters it. Detaching clears the attached flag in
/// every case, and does no more for a proxy that is not attached.
void attach(TMemProxy &proxy, std::span<const qint16> indices);
void detach(TMemProxy &proxy, std::span<const qint16> indices);

Reading read(const TMemProxy &proxy, int index);
/// The value alone.
qint16 readValue(const TMemProxy &proxy, int index);

/// The display text of a parameter by its own table.
QString text(const TMemProxy &proxy, int index);

} // namespace blockparameters
