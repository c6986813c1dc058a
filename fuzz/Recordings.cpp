// SPDX-License-Identifier: MIT
// Recordings of parameter traffic.
#include "editor/recording/Recording.h"
#include "fuzz/FuzzApplication.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    QByteArray bytes = fuzz::Input{data, size}.bytes();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QString error;
    const auto recording = Recording::readFrom(buffer, &error);
    fuzz::require(recording.has_value() == error.isEmpty());
    if (!recording)
        return 0;
    fuzz::require(recording->first.isWhole());
    quint32 before = 0;
    for (const Recording::Frame &frame : recording->frames) {
        fuzz::require(frame.time >= before);
        before = frame.time;
        for (const Recording::Change &change : frame.changes)
            fuzz::require(change.place < recording->first.values.size());
    }
    return 0;
}
