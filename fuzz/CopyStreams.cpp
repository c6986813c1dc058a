// SPDX-License-Identifier: MIT
// Streams of copied parameters, pasted into all controls: the first byte chooses the class.
#include "fuzz/FuzzControls.h"
#include "interfaces/ParamStream.h"
#include "interfaces/TMemProxy.h"

#include <QUndoStack>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    ParameterMemory &memory = fuzz::memory();
    const fuzz::Input input{data, size};
    auto *proxy = dynamic_cast<TMemProxy *>(&fuzz::boundWidget(fuzz::widgetClass(input.choice())));
    if (!proxy)
        return 0;
    const QByteArray bytes = input.rest().bytes();
    proxy->pasteParameters(QDataStream(bytes), 0);
    QDataStream again(bytes);
    const TParamInfoReader reader(&again);
    if (reader.isValid()) {
        TParamInfo info = reader.info();
        memory.applyParamInfo(info.group, info.index, info, 0);
        // Whatever was pasted, the value stays inside the bounds.
        const int value = memory.readValue(info.group, info.index, info.element, 0, 0);
        fuzz::require(value >= memory.readMinimum(info.group, info.index, info.element, 0)
                      && value <= memory.readMaximum(info.group, info.index, info.element, 0));
    }
    memory.undoStack()->clear();
    QCoreApplication::sendPostedEvents();
    return 0;
}
