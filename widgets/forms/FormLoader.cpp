// SPDX-License-Identifier: MIT
#include "widgets/forms/FormLoader.h"

#include "widgets/forms/FormBuilder.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/PictureStore.h"

#include <QCoreApplication>
#include <QHash>

namespace {

QString tr(const char *source)
{
    return QCoreApplication::translate("FormLoader", source);
}

/// What is told of a form that is being loaded: a line helps where nothing else tells the place.
QString lineOf(const FormFinding &finding)
{
    if (finding.kind == FormFinding::Unreadable && finding.line > 0)
        return tr("line %1: %2").arg(finding.line).arg(finding.reason);
    return finding.text();
}

} // namespace

struct FormLoader::Private
{
    FormBuilder builder;
    QHash<QString, PreparedForm> prepared; ///< files read since the outermost load() began
    QStringList problems;
    int depth = 0;

    PreparedForm prepare(const QString &fileName);
};

PreparedForm FormLoader::Private::prepare(const QString &fileName)
{
    auto known = prepared.find(fileName);
    if (known == prepared.end())
        known = prepared.insert(fileName, FormReader(fileName).read());
    return *known;
}

FormLoader::FormLoader() : d(std::make_unique<Private>()) {}

FormLoader::~FormLoader() = default;

QWidget *FormLoader::load(const QString &fileName, QWidget *parent)
{
    return loadForChannel(fileName, 0, parent);
}

QWidget *FormLoader::loadForChannel(const QString &fileName, int channel, QWidget *parent)
{
    if (d->depth >= FormRepeater::DeepestForm) {
        addProblem(tr("%1: contains itself").arg(fileName));
        return nullptr;
    }
    ++d->depth;
    const PreparedForm form = d->prepare(fileName);
    BuiltForm built;
    if (!form.xml.isEmpty())
        built = d->builder.build(form, fileName, channel, parent);
    for (const FormFinding &finding : form.findings + built.findings)
        addProblem(fileName + QLatin1StringView(": ") + lineOf(finding));
    if (built.root) {
        const QList<FormRepeater *> repeaters = built.root->findChildren<FormRepeater *>();
        for (FormRepeater *repeater : repeaters)
            repeater->fill(*this, fileName);
    }
    if (--d->depth == 0) {
        d->prepared.clear();
        picturestore::dropUnused();
    }
    return built.root;
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
