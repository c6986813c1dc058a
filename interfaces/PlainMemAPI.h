// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"
#include "interfaces/TMemProxy.h"

#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>

/// A memory of plain numbers, to derive one's own from: what is left to write is where the values are
/// and who hears of changes. It has no names, text tables, undo, meters, time counter and head amps,
/// and its blink clock stands still; override what your console has.
class CONSOLEINTERFACES_EXPORT PlainMemAPI : public IMemAPI
{
public:
    // Without names a proxy stays where it was bound.
    void namedAddressChanged(TMemProxy *) override {}
    void selectAltAddress(TMemProxy *, int) override {}

    int readDefault(int group, int index, int element, bool alternative,
                    int *unavailable) const override
    {
        if (unavailable)
            *unavailable = alternative;
        return std::clamp(0, readMinimum(group, index, element, 0),
                          readMaximum(group, index, element, 0));
    }
    bool applyParamInfo(int group, int index, TParamInfo &info, int) override
    {
        if (info.group != group || info.index != index
            || writeValue(group, index, info.element, info.value, undoToken(0, 1)) < 0)
            return false;
        info.value = readValue(group, index, info.element, 0, 0);
        return true;
    }
    int stepValue(const TMemProxy *proxy, int value, Step step) const override
    {
        const bool up = step == LineUp || step == PageUp;
        const int low = readMinimum(proxy->group, proxy->index, proxy->element, 0);
        const int high = readMaximum(proxy->group, proxy->index, proxy->element, 0);
        return static_cast<int>(std::clamp<qint64>(qint64(value) + (up ? 1 : -1), low, high));
    }

    /// The number itself, or "ON" and "OFF" for table -3.
    void valueText(int element, int tableId, QString &text, QPixmap &, int value, bool onOffFive,
                   int group, int index) const override
    {
        const int origin = tableId >= 0 ? std::min(readMinimum(group, index, element, 0), 0) : 0;
        text = QString::number(qint64(value) + origin);
        if (tableId == -3)
            text = value == (onOffFive ? 5 : 1) ? QStringLiteral("ON") : QStringLiteral("OFF");
    }
    void setNumberContext(const TMemProxy *proxy) override
    {
        m_numberLow = readMinimum(proxy->group, proxy->index, proxy->element, 0);
        m_numberHigh = readMaximum(proxy->group, proxy->index, proxy->element, 0);
    }
    int numberToValue(float number, int tableId) const override
    {
        constexpr int least = std::numeric_limits<int>::min();
        constexpr int most = std::numeric_limits<int>::max();
        const int low = tableId > 0 ? least : m_numberLow;
        const int high = tableId > 0 ? most : m_numberHigh;
        const double held = std::isfinite(number) ? std::clamp<double>(number, low, high) : low;
        const qint64 origin = tableId == 0 ? std::min(low, 0) : 0;
        return static_cast<int>(std::clamp<qint64>(std::llround(held) - origin, least, most));
    }

    int undoToken(int, int) override { return 0; }
    void beginGesture(TMemProxyBasic *) override {}
    void endGesture(TMemProxyBasic *) override {}
    std::unique_ptr<IUndoRecord> openUndoRecord(const QString &) override { return nullptr; }
    void commitUndoRecord(std::unique_ptr<IUndoRecord>) override {}

    QObject *blinkClock(bool *lit, int) override
    {
        if (lit)
            *lit = true;
        if (!m_blinkClock)
            m_blinkClock = std::make_unique<QTimer>();
        return m_blinkClock.get();
    }
    bool connectApiSignal(bool, const char *, QObject *, const char *) override { return false; }
    void setMeterWatch(bool, TMemProxyBasic *, int, int, int) override {}
    const quint16 *meterTableById(int, int *count, int) const override
    {
        if (count)
            *count = 0;
        return nullptr;
    }
    void requestTimecode(int, TMemProxyBasic *) override {}
    int connectionState() const override { return isReady() ? Online : 0; }
    IPreferences *preferences() override { return nullptr; }

    CSimpleNotifier *createNotifier(QObject *, const QString &, int, const char *,
                                    CSimpleNotifier *, void *) override
    {
        return nullptr;
    }
    CSimpleNotifier *createNotifier(QObject *, const TSingleAddress *, int, const char *,
                                    CSimpleNotifier *, void *) override
    {
        return nullptr;
    }
    int resolveXtraInfo(TXtraInfo &) const override { return Failed; }
    bool resolvePhantomAddress(const TMemProxy *, int, int, TSingleBaseAddress &) const override
    {
        return false;
    }

private:
    int m_numberLow = 0;
    int m_numberHigh = 0;
    std::unique_ptr<QTimer> m_blinkClock;
};
