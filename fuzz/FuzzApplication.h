// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QString>

#include <cstdlib>

/// What every entry point needs: an application without a display, and silence, since warnings about bad
/// input are what is asked for.
namespace fuzz {

inline void start()
{
    static int argumentCount = 1;
    static char programName[] = "fuzz";
    static char *arguments[] = {programName, nullptr};
    [[maybe_unused]] static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    [[maybe_unused]] static const auto before =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &) {
            if (type == QtFatalMsg)
                std::abort();
        });
    // Outlives everything static: an exit in any order is not what is tried here.
    [[maybe_unused]] static const auto &application = *new QApplication(argumentCount, arguments);
}

inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The input. The first byte is often taken for a choice: see choice() and rest().
struct Input
{
    const unsigned char *data;
    std::size_t size;

    QByteArray bytes() const
    {
        return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    }
    unsigned choice() const { return size == 0 ? 0 : data[0]; }
    Input rest() const { return size == 0 ? *this : Input{data + 1, size - 1}; }
    QString text() const { return QString::fromUtf8(bytes()); }
};

} // namespace fuzz
