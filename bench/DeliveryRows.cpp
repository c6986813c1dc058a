// SPDX-License-Identifier: MIT
// What a change of a parameter costs on the thread that makes it, and on the GUI thread.
#include "bench/BareDelivery.h"
#include "bench/DeliveryRig.h"
#include "bench/Producer.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"

#include <QCoreApplication>

namespace {

enum class Side { Producer, Gui };

/// A frame: another thread changes every parameter once, then the GUI thread turns. Its time is that of
/// one side.
template<typename Delivery>
rounds::Case frames(const char *name, Delivery &delivery, Producer &producer, Side side)
{
    const auto frame = [&delivery, &producer, side, step = 0]() mutable {
        step = (step + 1) % scale::Steps;
        const double producing = producer.run([&] {
            for (int receiver = 0; receiver < ReceiverCount; ++receiver)
                delivery.change(receiver, step);
        });
        const double start = threadSeconds();
        QCoreApplication::sendPostedEvents();
        const double delivering = threadSeconds() - start;
        return side == Side::Producer ? producing : delivering;
    };
    return {name, frame};
}

template<typename OfMemory, typename OfList>
Measurement compareFrames(Side side)
{
    Producer producer;
    OfMemory memory;
    OfList list;
    const Measurement measured =
        rounds::compare({frames("1000 changes, memory", memory, producer, side),
                         frames("1000 changes, dirty list", list, producer, side)},
                        rounds::firstToSecond);
    if (memory.stale() > 0 || list.stale() > 0)
        qFatal("changes were not delivered");
    return measured;
}

} // namespace

Measurement producerCost()
{
    return compareFrames<MemoryDelivery, DirtyListDelivery>(Side::Producer);
}

Measurement deliveryCost()
{
    return compareFrames<MemoryDelivery, DirtyListDelivery>(Side::Gui);
}

Measurement bareProducerCost()
{
    return compareFrames<BareMemoryDelivery, BareListDelivery>(Side::Producer);
}

Measurement bareDeliveryCost()
{
    return compareFrames<BareMemoryDelivery, BareListDelivery>(Side::Gui);
}
