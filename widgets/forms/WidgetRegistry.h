// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QIcon>
#include <QSize>
#include <QString>

#include <span>

class QWidget;
class QXmlStreamWriter;
struct QMetaObject;

/// The one list of the library's widget classes. Whoever offers them to others (the form loader, the
/// form check, form editors, documentation) reads it; a class is added in WidgetRegistry.cpp and nowhere
/// else. GUI thread.
class CONSOLEWIDGETS_EXPORT WidgetRegistry
{
public:
    /// A property as a form writes it.
    struct Property
    {
        const char *name;  ///< as in the class
        const char *kind;  ///< the form's element: "number", "bool", "string", "enum", "pixmap"
        const char *value; ///< as text; names of enumerators, files of pictures
    };

    /// A widget class and what is told of it.
    struct Entry
    {
        const QMetaObject *metaObject;        ///< properties and signals, for reading
        const char *group;                    ///< heading under which form editors list the class
        const char *toolTip;                  ///< one line: what the widget is for
        QWidget *(*make)(QWidget *parent);    ///< a plain object of the class
        const char *folder = "";              ///< where its header is
        const char *whatsThis = "";           ///< what the operator sees and does
        QSize size = {};                      ///< of a new one in a form editor
        std::span<const Property> start = {}; ///< what makes a new one look like something
        bool isContainer = false;             ///< whether authors place widgets inside it

        /// As forms and programs name it.
        const char *className() const;
        /// As programs include it.
        QString header() const;
        /// The drawn one where the program carries the artwork, else the widget itself, made small.
        QIcon icon() const;
        /// The class that it derives from.
        const char *baseClass() const;
        /// Writes the widget as it stands in a form, with its starting properties: what form editors
        /// drop.
        void writeWidget(QXmlStreamWriter &xml) const;
        /// A new widget with size and starting properties; pictures that the program does not carry
        /// are left out.
        QWidget *makeSample(QWidget *parent = nullptr) const;
    };

    /// In the order in which they are shown.
    static std::span<const Entry> entries();
    /// Null when the library has no such class.
    static const Entry *find(const QString &className);
};
