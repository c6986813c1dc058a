// SPDX-License-Identifier: MIT
#include "editor/ScreenPages.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"
#include "editor/BoundControls.h"
#include "editor/OutputPatch.h"
#include "editor/PageTurn.h"
#include "widgets/forms/FormLoader.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/lists/CGrid.h"

#include <QFileInfo>
#include <QLabel>
#include <QScrollArea>
#include <QTabBar>

namespace {

/// The parameter whose elements are the channels that can be shown one at a time.
const QString ChannelParameter = QStringLiteral("kInputFader/kFader");

constexpr const char *ElementProperty = FormRepeater::ElementProperty;

/// Tabs that are as high as what stands in the corner beside them, which would be cut off otherwise.
class ScreenTabs : public QTabBar
{
public:
    explicit ScreenTabs(QTabWidget &pages) : QTabBar(&pages), m_pages(pages) {}

protected:
    QSize tabSizeHint(int index) const override
    {
        const QWidget *corner = m_pages.cornerWidget(Qt::TopRightCorner);
        const QSize own = QTabBar::tabSizeHint(index);
        return corner ? own.expandedTo({0, corner->sizeHint().height()}) : own;
    }

private:
    const QTabWidget &m_pages;
};

/// `name`, with a number behind it when it is taken.
QString uniqueName(const QString &name, const QStringList &taken)
{
    QString unique = name;
    for (int number = 2; taken.contains(unique); ++number)
        unique = QString("%1-%2").arg(name).arg(number);
    return unique;
}

} // namespace

struct ScreenPages::Private
{
    explicit Private(ParameterMemory &boundMemory) : memory(boundMemory) {}

    ParameterMemory &memory;
    FormLoader loader;
    QStringList names;
    int element = 0;
    bool allOpened = true;
};

ScreenPages::ScreenPages(ParameterMemory &memory, QWidget *parent)
    : QTabWidget(parent), d(std::make_unique<Private>(memory))
{
    auto *turn = new PageTurn(*this);
    auto *bar = new ScreenTabs(*this);
    // Before the tab widget hears of it, and after.
    connect(bar, &QTabBar::currentChanged, turn, &PageTurn::begin);
    setTabBar(bar);
    connect(bar, &QTabBar::currentChanged, turn, &PageTurn::end);
    setDocumentMode(true);
}

ScreenPages::~ScreenPages() = default;

QStringList ScreenPages::shippedForms()
{
    return {":/forms/channel-strips.ui", ":/forms/selected-channel.ui", ":/forms/dynamics.ui",
            ":/forms/masters.ui",        ":/forms/head-amps.ui",        ":/forms/input-patch.ui",
            ":/forms/bus-patch.ui",      ":/forms/meter-bridge.ui",     ":/forms/scenes.ui"};
}

void ScreenPages::open(const QStringList &forms)
{
    for (const QString &form : forms)
        openForm(form);
}

void ScreenPages::openForm(const QString &form)
{
    QWidget *root = d->loader.load(form);
    d->allOpened &= root != nullptr;
    if (!root)
        root = failurePage(form);
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(root);
    d->names << uniqueName(QFileInfo(form).completeBaseName(), d->names);
    titlePage(addTab(area, QString()));
    // A patch is changed from elsewhere, too: every channel, not only the one of the grid's address.
    for (CGrid *grid : root->findChildren<CGrid *>())
        grid->setAutoUpdates(true);
    bindPage(root);
    outputpatch::appendAddresses(root, d->memory);
    Q_EMIT pageAdded(area);
    const QList<QWidget *> controls = boundcontrols::inside(root);
    for (QWidget *control : controls)
        Q_EMIT controlAdded(control);
}

QWidget *ScreenPages::failurePage(const QString &form)
{
    auto *page = new QLabel(tr("This screen could not be opened.") + "\n\n"
                            + d->loader.problems().filter(form).join('\n'));
    page->setTextFormat(Qt::PlainText);
    page->setAlignment(Qt::AlignCenter);
    page->setWordWrap(true);
    page->setWindowTitle(QFileInfo(form).fileName());
    return page;
}

void ScreenPages::bindPage(QWidget *root)
{
    const QVariant element = root->property(ElementProperty);
    if (element.isValid())
        root->setProperty(ElementProperty, d->element);
    d->memory.bind(root, element.isValid() ? d->element : 0);
}

void ScreenPages::titlePage(int index)
{
    QString text = pageTitle(index);
    if (followsChannel(index))
        text += QString(" %1").arg(d->element + 1);
    setTabText(index, text);
}

QStringList ScreenPages::problems() const
{
    return d->loader.problems();
}

bool ScreenPages::allOpened() const
{
    return d->allOpened;
}

QScrollArea *ScreenPages::page(int index) const
{
    return static_cast<QScrollArea *>(widget(index));
}

QString ScreenPages::pageTitle(int index) const
{
    const QString title = page(index)->widget()->windowTitle();
    return title.isEmpty() ? pageName(index) : title;
}

QString ScreenPages::pageName(int index) const
{
    return d->names.value(index);
}

bool ScreenPages::followsChannel(int index) const
{
    return index >= 0 && page(index)->widget()->property(ElementProperty).isValid();
}

int ScreenPages::channelElement() const
{
    return d->element;
}

void ScreenPages::setChannelElement(int element)
{
    if (element == d->element)
        return;
    d->element = element;
    for (int index = 0; index < count(); ++index) {
        if (!followsChannel(index))
            continue;
        bindPage(page(index)->widget());
        titlePage(index);
    }
}

int ScreenPages::channelCount() const
{
    const ConsoleModel &model = d->memory.model();
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        if (model.addressOf(parameter) == ChannelParameter)
            return parameter.elements;
    }
    return 1;
}
