// SPDX-License-Identifier: MIT
#include "widgets/forms/PropertyNotes.h"

#include <QMetaObject>

#include <algorithm>

namespace {

/// What all bound controls have says the same of all of them.
constexpr char BindingClass[] = "TMemProxy";

QString find(const char *className, const QString &property)
{
    const auto notes = propertynotes::all();
    const auto found = std::ranges::find_if(notes, [&](const propertynotes::Note &note) {
        return qstrcmp(note.className, className) == 0
               && property == QLatin1StringView(note.property);
    });
    return found == notes.end() ? QString() : QString::fromUtf8(found->text);
}

} // namespace

QString propertynotes::of(const QMetaObject &meta, const QString &property)
{
    for (const QMetaObject *each = &meta; each; each = each->superClass()) {
        if (const QString text = find(each->className(), property); !text.isEmpty())
            return text;
    }
    const int index = meta.indexOfProperty("namedAddress");
    return index < 0 ? QString() : find(BindingClass, property);
}
