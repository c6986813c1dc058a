// SPDX-License-Identifier: MIT
// Streams of copied parameters, pasted into all controls: the first byte chooses the class.
#include "companions/memory/ParameterMemory.h"
#include "fuzz/FuzzApplication.h"
#include "interfaces/ParamStream.h"
#include "interfaces/TMemProxy.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QUndoStack>
#include <QWidget>

#include <map>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    fuzz::start();
    static auto &memory = *new ParameterMemory;
    static const bool loaded = memory.load(ParameterMemory::builtInModel());
    fuzz::require(loaded);
    // Not destroyed at the exit, when Qt may be gone.
    static auto &widgets = *new std::map<const WidgetRegistry::Entry *, std::unique_ptr<QWidget>>;
    const fuzz::Input input{data, size};
    const auto entries = WidgetRegistry::entries();
    const WidgetRegistry::Entry &entry = entries[input.choice() % entries.size()];
    std::unique_ptr<QWidget> &widget = widgets[&entry];
    if (!widget) {
        widget.reset(entry.make(nullptr));
        widget->setProperty("namedAddress", "kInputFader/kFader");
        memory.bind(widget.get());
    }
    auto *proxy = dynamic_cast<TMemProxy *>(widget.get());
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
