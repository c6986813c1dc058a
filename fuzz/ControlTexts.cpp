// SPDX-License-Identifier: MIT
// The text properties of all controls (boundList, menuItemList, namedAddress, xtraInfo and the rest), set
// to whatever comes while the controls are bound. The first byte chooses the class, the second the
// property, the rest is its text.
#include "companions/memory/ParameterMemory.h"
#include "fuzz/FuzzApplication.h"
#include "interfaces/TMemProxy.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QAccessible>
#include <QMetaProperty>
#include <QWidget>

#include <map>
#include <memory>

namespace {

/// The names of the writable properties of type QString.
QList<const char *> textsOf(const QMetaObject &type)
{
    QList<const char *> names;
    for (int i = QWidget::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        if (property.isWritable() && property.metaType().id() == QMetaType::QString)
            names << property.name();
    }
    return names;
}

} // namespace

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
    constexpr unsigned rarely = 16;
    if (!widget || input.choice() % rarely == 0) {
        widget.reset(entry.make(nullptr));
        widget->setProperty("namedAddress", "kInputFader/kFader");
        memory.bind(widget.get());
    }
    const QList<const char *> names = textsOf(*entry.metaObject);
    if (names.isEmpty())
        return 0;
    const char *name = names[static_cast<qsizetype>(input.rest().choice()) % names.size()];
    widget->setProperty(name, input.rest().rest().text());
    widget->property(name).toString();
    widget->sizeHint();
    widget->resize(40, 40);
    widget->grab();
    if (QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget.get()))
        spoken->text(QAccessible::Value);
    QCoreApplication::sendPostedEvents();
    return 0;
}
