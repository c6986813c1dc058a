// SPDX-License-Identifier: MIT
// The text properties of all controls (boundList, menuItemList, namedAddress, xtraInfo and the rest), set
// to whatever comes while the controls are bound. The first byte chooses the class, the second the
// property, the rest is its text.
#include "fuzz/FuzzControls.h"

#include <QAccessible>
#include <QMetaProperty>

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
    const fuzz::Input input{data, size};
    const WidgetRegistry::Entry &entry = fuzz::widgetClass(input.choice());
    constexpr unsigned rarely = 16;
    QWidget &widget = fuzz::boundWidget(entry, input.choice() % rarely == 0);
    const QList<const char *> names = textsOf(*entry.metaObject);
    if (names.isEmpty())
        return 0;
    const char *name = names[static_cast<qsizetype>(input.rest().choice()) % names.size()];
    widget.setProperty(name, input.rest().rest().text());
    widget.property(name).toString();
    widget.sizeHint();
    widget.resize(40, 40);
    widget.grab();
    if (QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&widget))
        spoken->text(QAccessible::Value);
    QCoreApplication::sendPostedEvents();
    return 0;
}
