// SPDX-License-Identifier: MIT
// What a dial costs from a refresh to the end of the paint.
#include "bench/KnobStrip.h"
#include "bench/references/EmptyChild.h"
#include "bench/references/IdealKnob.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "bench/Scale.h"
#include "bench/Stage.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"
#include "widgets/painting/PictureBatches.h"

#include <QPainter>

namespace {

/// A parameter with a text for every value, and as many pictures as values.
const QString Address = QStringLiteral("kInputEQ/kLowFreq");
constexpr int Values = 121;

/// Runs over all values, so that each is new.
class Sweep
{
public:
    int next() { return m_value = (m_value + 1) % Values; }

private:
    int m_value = 0;
};

/// A bound dial on a stage. It is not registered on its parameter, so that writing a value calls
/// nothing: the refresh is called by hand, and is thus all that is measured.
class DialScene
{
public:
    explicit DialScene(const QPixmap &strip, int rows = Values)
    {
        scale::load(m_memory);
        m_dial.setCombinedImage(strip);
        m_dial.setnSubImages(rows);
        m_dial.setTransparent(strip.hasAlphaChannel());
        m_dial.setNamedAddress(Address);
        m_stage.enter(m_dial);
        m_memory.bind(&m_dial);
        Stage::frame();
        m_dial.disconnectMemAPI();
        change();
        Stage::frame();
        if (m_dial.maximum() - m_dial.minimum() != Values - 1 || m_dial.hasFocus())
            qFatal("the dial is not as it must be");
    }

    CDial &dial() { return m_dial; }
    void refresh() { m_dial.process(nullptr, CDial::Refresh, 0); }
    void change()
    {
        m_memory.writeValue(m_dial.group, m_dial.index, m_dial.element, m_sweep.next(), 0);
        refresh();
    }

private:
    ParameterMemory m_memory;
    Stage m_stage;
    CDial m_dial{&m_stage.window()};
    Sweep m_sweep;
};

/// A reference on a stage of its own.
template<typename Knob>
struct KnobScene
{
    template<typename... Arguments>
    explicit KnobScene(const Arguments &...arguments) : knob(arguments..., &stage.window())
    {
        stage.enter(knob);
    }

    Stage stage;
    Knob knob;
};

/// Ends the program unless every change of the dial reaches the screen as the ideal knob's does.
void requirePaints(DialScene &scene, IdealKnob &knob)
{
    for (int change = 1; change <= Values; ++change) {
        scene.change();
        knob.setValue(scene.dial().value());
        Stage::frame();
        if (onScreen(scene.dial()) != onScreen(knob))
            qFatal("change %d is not painted as it must be", change);
    }
}

rounds::Case changeAndFrame(const char *name, const std::function<void()> &change)
{
    return {name, [change](benchmark::State &state) {
                for (auto _ : state) {
                    change();
                    Stage::frame();
                }
            }};
}

rounds::Case emptyFrame(EmptyChild &child)
{
    return changeAndFrame("empty child", [&child] { child.update(); });
}

/// One cell blitted with a painter of its own, into a picture like the window's.
rounds::Case blit(const QPixmap &strip)
{
    return {"blit", [&strip](benchmark::State &state) {
                QImage target(1200, 800, QImage::Format_RGB32);
                target.fill(Qt::black);
                const QSize cell(knobstrip::CellSize, knobstrip::CellSize);
                Sweep sweep;
                for (auto _ : state)
                    QPainter(&target).drawPixmap(
                        QPoint(400, 300), strip,
                        QRect(QPoint(0, sweep.next() * knobstrip::CellSize), cell));
            }};
}

double firstToSumOfOthers(const rounds::Times &times)
{
    return times[0] / (times[1] + times[2]);
}

} // namespace

Measurement dialRefresh()
{
    const QPixmap strip = knobstrip::opaque(Values);
    DialScene scene(strip);
    KnobScene<IdealKnob> ideal(strip, Values);
    ideal.knob.setRange(0, Values - 1);
    requirePaints(scene, ideal.knob);
    KnobScene<EmptyChild> empty;
    return rounds::compare(
        {changeAndFrame("dial", [&scene] { scene.change(); }), emptyFrame(empty.knob), blit(strip)},
        firstToSumOfOthers);
}

Measurement dialAlpha()
{
    const QPixmap strip = knobstrip::translucent(Values);
    DialScene scene(strip);
    KnobScene<IdealKnob> ideal(strip, Values);
    ideal.knob.setRange(0, Values - 1);
    requirePaints(scene, ideal.knob);
    Sweep sweep;
    return rounds::compare(
        {changeAndFrame("dial", [&scene] { scene.change(); }),
         changeAndFrame("ideal alpha knob", [&] { ideal.knob.setValue(sweep.next()); })},
        rounds::firstToSecond);
}

Measurement dialUnchanged()
{
    const QPixmap strip = knobstrip::opaque(Values);
    DialScene scene(strip);
    KnobScene<EmptyChild> empty;
    const rounds::Case refresh{"dial", [&scene](benchmark::State &state) {
                                   for (auto _ : state)
                                       scene.refresh();
                               }};
    return rounds::compare({refresh, emptyFrame(empty.knob), blit(strip)}, firstToSumOfOthers);
}

Measurement dialSameRow()
{
    constexpr int Rows = 10;
    picturebatches::setEnabled(false); // paint events can be counted
    DialScene scene(knobstrip::opaque(Rows), Rows);
    const PaintCounter counter(scene.dial());
    int changes = 0;
    int paintsForNothing = 0;
    int pictures = 0;
    for (int change = 0; change < 2 * Values; ++change) {
        const int before = scene.dial().currentIndex();
        const int paintsBefore = counter.paints;
        scene.change();
        Stage::frame();
        if (scene.dial().currentIndex() == before) {
            ++changes;
            paintsForNothing += counter.paints - paintsBefore;
        } else {
            ++pictures;
        }
    }
    if (counter.paints - paintsForNothing != pictures)
        qFatal("a new picture was not painted");
    picturebatches::setEnabled(true);
    return counted(double(paintsForNothing) / changes);
}
