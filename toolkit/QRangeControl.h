// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

/// A value inside a range, with line and page steps: the arithmetic of a control without a widget.
/// Derived controls override the hooks; a hook runs only when something really changed.
class QRangeControl
{
public:
    QRangeControl() = default;
    QRangeControl(int minimum, int maximum, int lineStep, int pageStep, int value)
        : m_minimum(minimum), m_maximum(std::max(minimum, maximum)), m_lineStep(lineStep),
          m_pageStep(pageStep), m_value(bound(value))
    {
    }
    virtual ~QRangeControl() = default;

    int value() const { return m_value; }
    int minValue() const { return m_minimum; }
    int maxValue() const { return m_maximum; }
    int lineStep() const { return m_lineStep; }
    int pageStep() const { return m_pageStep; }

    /// The value held inside the range.
    int bound(int value) const { return std::clamp(value, m_minimum, m_maximum); }

    void setValue(int value)
    {
        value = bound(value);
        if (value == m_value)
            return;
        m_value = value;
        valueChange();
    }

    /// A maximum below the minimum is raised to the minimum. The value follows into the range.
    void setRange(int minimum, int maximum)
    {
        maximum = std::max(minimum, maximum);
        if (minimum == m_minimum && maximum == m_maximum)
            return;
        m_minimum = minimum;
        m_maximum = maximum;
        rangeChange();
        setValue(m_value);
    }
    void setMinValue(int minimum) { setRange(minimum, std::max(minimum, m_maximum)); }
    void setMaxValue(int maximum) { setRange(std::min(m_minimum, maximum), maximum); }

    void setSteps(int line, int page)
    {
        if (line == m_lineStep && page == m_pageStep)
            return;
        m_lineStep = line;
        m_pageStep = page;
        stepChange();
    }

    void addLine() { step(m_lineStep); }
    void subtractLine() { step(-m_lineStep); }
    void addPage() { step(m_pageStep); }
    void subtractPage() { step(-m_pageStep); }

protected:
    virtual void valueChange() {}
    virtual void rangeChange() {}
    virtual void stepChange() {}

private:
    void step(int by)
    {
        const long long next = static_cast<long long>(m_value) + by;
        setValue(static_cast<int>(std::clamp<long long>(next, m_minimum, m_maximum)));
    }

    int m_minimum = 0;
    int m_maximum = 99;
    int m_lineStep = 1;
    int m_pageStep = 10;
    int m_value = 0;
};
