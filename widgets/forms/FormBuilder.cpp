// SPDX-License-Identifier: MIT
#include "widgets/forms/FormBuilder.h"

#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/MissingWidget.h"
#include "widgets/forms/PictureStore.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMetaMethod>
#include <QUiLoader>

namespace {

QString tr(const char *source)
{
    return QCoreApplication::translate("FormLoader", source);
}

FormFinding finding(FormFinding::Kind kind, const QString &widget, const QString &property,
                    const QString &reason)
{
    FormFinding made;
    made.kind = kind;
    made.widget = widget;
    made.property = property;
    made.reason = reason;
    return made;
}

QObject *childNamed(QWidget *root, const QString &name)
{
    return root->objectName() == name ? root : root->findChild<QObject *>(name);
}

bool isStandIn(const QObject *object)
{
    return qobject_cast<const MissingWidget *>(object);
}

void setPictures(QWidget *widget, FormFindings &found)
{
    const QByteArray prefix = PreparedForm::PicturePrefix;
    const QList<QByteArray> names = widget->dynamicPropertyNames();
    for (const QByteArray &name : names) {
        if (!name.startsWith(prefix))
            continue;
        const QString file = widget->property(name).toString();
        widget->setProperty(name, QVariant());
        const QPixmap picture = picturestore::picture(file);
        if (picture.isNull())
            found << finding(FormFinding::Picture, widget->objectName(), name.mid(prefix.size()),
                             tr("\"%1\" holds no picture").arg(file));
        else
            widget->setProperty(name.mid(prefix.size()), picture);
    }
}

// A property that the class does not have ends up as one that nobody reads: most often a name
// mistyped. Authors may add properties to Qt's widgets; ours have all theirs from the class, and a form
// editor that does not know it marks them as added. Names that begin with an underscore are Qt's own.
void findStrayProperties(const PreparedForm &form, QWidget *widget, FormFindings &found)
{
    if (isStandIn(widget))
        return;
    const QString className = widget->metaObject()->className();
    const bool ours = WidgetRegistry::find(className);
    const QList<QByteArray> names = widget->dynamicPropertyNames();
    for (const QByteArray &name : names) {
        const bool added = !ours && form.addedProperties.contains(name);
        if (added || name.startsWith('_') || name == FormRepeater::ElementProperty)
            continue;
        found << finding(FormFinding::Property, widget->objectName(), name,
                         tr("%1 has no such property").arg(className));
    }
}

/// Makes the connection, or says why it cannot be made.
QString connectionFault(const PreparedForm::Connection &wanted, QWidget *root)
{
    QObject *sender = childNamed(root, wanted.sender);
    QObject *receiver = childNamed(root, wanted.receiver);
    if (!sender || !receiver)
        return tr("no widget '%1'").arg(sender ? wanted.receiver : wanted.sender);
    if (isStandIn(sender) || isStandIn(receiver))
        return {};
    const QByteArray signal = QMetaObject::normalizedSignature(wanted.signal.toUtf8());
    const QByteArray slot = QMetaObject::normalizedSignature(wanted.slot.toUtf8());
    const int from = sender->metaObject()->indexOfSignal(signal);
    const int to = receiver->metaObject()->indexOfMethod(slot);
    if (from < 0)
        return tr("no signal %1").arg(signal);
    if (to < 0)
        return tr("no slot %1").arg(slot);
    if (!QMetaObject::checkConnectArgs(signal, slot))
        return tr("%1 does not fit %2").arg(signal, slot);
    QObject::connect(sender, sender->metaObject()->method(from), receiver,
                     receiver->metaObject()->method(to));
    return {};
}

void connectWidgets(const PreparedForm &form, QWidget *root, FormFindings &found)
{
    for (const PreparedForm::Connection &wanted : form.connections) {
        const QString fault = connectionFault(wanted, root);
        if (fault.isEmpty())
            continue;
        found << finding(
            FormFinding::Connection, {}, {},
            tr("connection from '%1' to '%2': %3").arg(wanted.sender, wanted.receiver, fault));
        found.last().line = wanted.line;
    }
}

} // namespace

/// The builder underneath, with our classes and a stand-in for the unknown ones.
class FormBuilder::Loader : public QUiLoader
{
public:
    Loader() : m_known(availableWidgets()) {}

    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        QWidget *widget = nullptr;
        if (const WidgetRegistry::Entry *entry = WidgetRegistry::find(className))
            widget = entry->make(parent);
        else if (m_known.contains(className))
            widget = QUiLoader::createWidget(className, parent, name);
        else
            widget = missing(className, parent, name);
        if (widget) {
            widget->setObjectName(name);
            made.widgets << widget;
        }
        return widget;
    }

    BuiltForm made;

private:
    QWidget *missing(const QString &className, QWidget *parent, const QString &name)
    {
        made.findings << finding(FormFinding::Class, name, {},
                                 tr("unknown class %1").arg(className));
        return new MissingWidget(className, parent);
    }

    const QStringList m_known;
};

FormBuilder::FormBuilder() : m_loader(std::make_unique<Loader>()) {}

FormBuilder::~FormBuilder() = default;

QString FormBuilder::forChannel(QString text, int channel)
{
    if (channel > 0) {
        text.replace("{ch}", QString::number(channel));
        text.replace("{element}", QString::number(channel - 1));
    }
    return text;
}

BuiltForm FormBuilder::build(const PreparedForm &form, const QString &fileName, int channel,
                             QWidget *parent)
{
    QByteArray bytes = forChannel(form.xml, channel).toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    m_loader->setWorkingDirectory(QFileInfo(fileName).absoluteDir());
    m_loader->made = {};
    QWidget *root = m_loader->load(&buffer, parent);
    BuiltForm built = std::exchange(m_loader->made, {});
    built.root = root;
    if (!root) {
        built.findings << finding(FormFinding::Unreadable, {}, {}, tr("holds no widget"));
        return built;
    }
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.prepend(root);
    for (QWidget *widget : std::as_const(widgets)) {
        setPictures(widget, built.findings);
        findStrayProperties(form, widget, built.findings);
    }
    if (channel > 0)
        root->setProperty(FormRepeater::ElementProperty, channel - 1);
    connectWidgets(form, root, built.findings);
    return built;
}
