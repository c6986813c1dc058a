// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

/// A value inside a range, with line and page steps: the arithmetic of a control without a widget.
/// Derived controls override the hooks; a hook runs only when something really changed.
class QRangeControl
{
public:
    /// 0 to 99, steps of 1 and 10, at 0.
    QRangeControl() = default;
    /// A maximum below the minimum is raised to it; the value is held inside.
    QRangeControl(int minimum, int maximum, int lineStep, int pageStep, int value)
        : m_minimum(minimum), m_maximum(std::max(minimum, maximum)), m_lineStep(lineStep),
          m_pageStep(pageStep), m_value(bound(value))
    {
    }
    virtual ~QRangeControl() = default;

    /// Between minValue() and maxValue().
    int value() const { return m_value; }
    /// The bounds, both included.
    int minValue() const { return m_minimum; }
    /// See minValue().
    int maxValue() const { return m_maximum; }
    /// What addLine() and addPage() add.
    int lineStep() const { return m_lineStep; }
    /// See lineStep().
    int pageStep() const { return m_pageStep; }

    /// The value held inside the range.
    int bound(int value) const { return std::clamp(value, m_minimum, m_maximum); }

    /// Holds it inside the range.
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
    /// Raises the maximum where it would be below.
    void setMinValue(int minimum) { setRange(minimum, std::max(minimum, m_maximum)); }
    /// Lowers the minimum where it would be above.
    void setMaxValue(int maximum) { setRange(std::min(m_minimum, maximum), maximum); }

    /// Neither moves the value.
    void setSteps(int line, int page)
    {
        if (line == m_lineStep && page == m_pageStep)
            return;
        m_lineStep = line;
        m_pageStep = page;
        stepChange();
    }

    /// One step up or down, held inside the range.
    void addLine() { step(m_lineStep); }
    /// See addLine().
    void subtractLine() { step(-m_lineStep); }
    /// See addLine().
    void addPage() { step(m_pageStep); }
    /// See addLine().
    void subtractPage() { step(-m_pageStep); }

protected:
    /// The value has changed.
    virtual void valueChange() {}
    /// The bounds have changed; the value is not yet inside.
    virtual void rangeChange() {}
    /// A step has changed.
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
