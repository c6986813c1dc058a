// SPDX-License-Identifier: MIT
#include "widgets/forms/FormLoader.h"

#include "widgets/forms/FormReader.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/MissingWidget.h"
#include "widgets/forms/PictureStore.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QHash>
#include <QMetaMethod>
#include <QUiLoader>
#include <QWidget>

namespace {

// A form that repeats forms that repeat forms: deeper than this they contain each other.
constexpr int deepestForm = 4;

QString tr(const char *source)
{
    return QCoreApplication::translate("FormLoader", source);
}

/// The builder underneath, with our classes and a stand-in for the unknown ones.
class Builder : public QUiLoader
{
public:
    Builder() : m_known(availableWidgets()) {}

    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        QWidget *widget = nullptr;
        if (const WidgetRegistry::Entry *entry = WidgetRegistry::find(className))
            widget = entry->make(parent);
        else if (m_known.contains(className))
            return QUiLoader::createWidget(className, parent, name);
        else
            widget = missing(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }

    QStringList takeProblems() { return std::exchange(m_problems, {}); }

private:
    QWidget *missing(const QString &className, QWidget *parent, const QString &name)
    {
        m_problems << tr("widget '%1': unknown class %2").arg(name, className);
        return new MissingWidget(className, parent);
    }

    const QStringList m_known;
    QStringList m_problems;
};

QObject *childNamed(QWidget *root, const QString &name)
{
    return root->objectName() == name ? root : root->findChild<QObject *>(name);
}

bool isStandIn(const QObject *object)
{
    return qobject_cast<const MissingWidget *>(object);
}

} // namespace

struct FormLoader::Private
{
    Builder builder;
    QHash<QString, PreparedForm> prepared; ///< files read since the outermost load() began
    QStringList problems;
    int depth = 0;

    const PreparedForm &prepare(const QString &fileName);
    QWidget *build(const PreparedForm &form, const QString &fileName, int channel, QWidget *parent,
                   QStringList &found);
    void setPictures(QWidget *widget, QStringList &found);
    void findStrayProperties(const PreparedForm &form, QWidget *widget, QStringList &found);
    void connectWidgets(const PreparedForm &form, QWidget *root, QStringList &found);
    QString connectionFault(const PreparedForm::Connection &wanted, QWidget *root);
};

const PreparedForm &FormLoader::Private::prepare(const QString &fileName)
{
    auto known = prepared.find(fileName);
    if (known == prepared.end())
        known = prepared.insert(fileName, FormReader(fileName).read());
    return *known;
}

QWidget *FormLoader::Private::build(const PreparedForm &form, const QString &fileName, int channel,
                                    QWidget *parent, QStringList &found)
{
    QString xml = form.xml;
    if (channel > 0) {
        xml.replace("{ch}", QString::number(channel));
        xml.replace("{element}", QString::number(channel - 1));
    }
    QByteArray bytes = xml.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    builder.setWorkingDirectory(QFileInfo(fileName).absoluteDir());
    QWidget *root = builder.load(&buffer, parent);
    found += builder.takeProblems();
    if (!root) {
        found << tr("holds no widget");
        return nullptr;
    }
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.prepend(root);
    for (QWidget *widget : std::as_const(widgets)) {
        setPictures(widget, found);
        findStrayProperties(form, widget, found);
    }
    connectWidgets(form, root, found);
    return root;
}

void FormLoader::Private::setPictures(QWidget *widget, QStringList &found)
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
            found << tr("widget '%1', property '%2': \"%3\" holds no picture")
                         .arg(widget->objectName(), name.mid(prefix.size()), file);
        else
            widget->setProperty(name.mid(prefix.size()), picture);
    }
}

// A property that the class does not have ends up as one that nobody reads: most often a name
// mistyped. Authors may add properties to Qt's widgets; ours have all theirs from the class, and a form
// editor that does not know it marks them as added. Names that begin with an underscore are Qt's own.
void FormLoader::Private::findStrayProperties(const PreparedForm &form, QWidget *widget,
                                              QStringList &found)
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
        found << tr("widget '%1', property '%2': %3 has no such property")
                     .arg(widget->objectName(), name, className);
    }
}

void FormLoader::Private::connectWidgets(const PreparedForm &form, QWidget *root,
                                         QStringList &found)
{
    for (const PreparedForm::Connection &wanted : form.connections) {
        const QString fault = connectionFault(wanted, root);
        if (!fault.isEmpty())
            found << tr("connection from '%1' to '%2': %3")
                         .arg(wanted.sender, wanted.receiver, fault);
    }
}

/// Makes the connection, or says why it cannot be made.
QString FormLoader::Private::connectionFault(const PreparedForm::Connection &wanted, QWidget *root)
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

FormLoader::FormLoader() : d(std::make_unique<Private>()) {}

FormLoader::~FormLoader() = default;

QWidget *FormLoader::load(const QString &fileName, QWidget *parent)
{
    return loadForChannel(fileName, 0, parent);
}

QWidget *FormLoader::loadForChannel(const QString &fileName, int channel, QWidget *parent)
{
    if (d->depth >= deepestForm) {
        addProblem(tr("%1: contains itself").arg(fileName));
        return nullptr;
    }
    ++d->depth;
    const PreparedForm form = d->prepare(fileName);
    QStringList found = form.problems;
    QWidget *root = nullptr;
    if (!form.xml.isEmpty())
        root = d->build(form, fileName, channel, parent, found);
    for (const QString &line : std::as_const(found))
        addProblem(fileName + QLatin1StringView(": ") + line);
    if (root) {
        if (channel > 0)
            root->setProperty(FormRepeater::ElementProperty, channel - 1);
        const QList<FormRepeater *> repeaters = root->findChildren<FormRepeater *>();
        for (FormRepeater *repeater : repeaters)
            repeater->fill(*this, fileName);
    }
    if (--d->depth == 0) {
        d->prepared.clear();
        picturestore::dropUnused();
    }
    return root;
}

QStringList FormLoader::problems() const
{
    return d->problems;
}

void FormLoader::addProblem(const QString &line)
{
    if (d->problems.contains(line))
        return;
    d->problems << line;
    qWarning("%s", qPrintable(line));
}
