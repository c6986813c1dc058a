// SPDX-License-Identifier: MIT
#include "widgets/lists/CListWidgeItem.h"

#include "widgets/lists/CListWidge.h"

#include <QBrush>
#include <QLocale>

#include <compare>

namespace {

QString numberText(int slot)
{
    return QString::asprintf("#%03d", slot);
}

} // namespace

CListWidgeItem::CListWidgeItem(QTreeWidget *list) : QTreeWidgetItem(list)
{
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemIsDragEnabled
             | Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren);
}

CListWidgeItem::~CListWidgeItem()
{
    if (m_life)
        *m_life = nullptr;
}

bool CListWidgeItem::clicked(int, const QPoint &)
{
    return false;
}

QDateTime CListWidgeItem::timeStored() const
{
    return {};
}

int CListWidgeItem::titleLimit() const
{
    return 0;
}

void CListWidgeItem::setTitle(const QString &, QString &error)
{
    error = CListWidge::tr("Titles of this library cannot be changed.");
}

QByteArray CListWidgeItem::dragData() const
{
    return {};
}

void CListWidgeItem::storeDragged(const QByteArray &, QString &error)
{
    error = CListWidge::tr("Slots of this library cannot be copied.");
}

void CListWidgeItem::moveTo(int, QString &error)
{
    error = CListWidge::tr("Slots of this library cannot be moved.");
}

QString CListWidgeItem::titleText() const
{
    QString text;
    title(text);
    return text;
}

QString CListWidgeItem::spokenText() const
{
    QString spoken = numberText(slotNumber());
    if (const QString text = titleText(); !text.isEmpty())
        spoken += QLatin1Char(' ') + text;
    if (!hasData())
        spoken += CListWidge::tr(", empty");
    if (isProtected())
        spoken += CListWidge::tr(", protected");
    if (isReadOnly())
        spoken += CListWidge::tr(", read only");
    return spoken;
}

void CListWidgeItem::contentsChanged()
{
    emitDataChanged();
}

CListWidgeItem::Reference CListWidgeItem::reference()
{
    if (!m_life)
        m_life = std::make_shared<CListWidgeItem *>(this);
    return Reference(m_life);
}

QVariant CListWidgeItem::cellText(int column) const
{
    switch (column) {
    case CListWidge::NumberColumn: return numberText(slotNumber());
    case CListWidge::TitleColumn: return titleText();
    case CListWidge::StoredColumn:
        return hasData() ? QLocale().toString(timeStored(), QLocale::ShortFormat) : QString();
    default: return {};
    }
}

QVariant CListWidgeItem::data(int column, int role) const
{
    if (column < 0 || column >= CListWidge::ColumnCount)
        return QTreeWidgetItem::data(column, role);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return cellText(column);
    case Qt::AccessibleTextRole: return spokenText();
    case Qt::ToolTipRole:
        if (column == CListWidge::ProtectedColumn && isProtected())
            return CListWidge::tr("Protected");
        if (column == CListWidge::ProtectedColumn && isReadOnly())
            return CListWidge::tr("Read only");
        break;
    case Qt::AccessibleDescriptionRole: return cellText(CListWidge::StoredColumn);
    case Qt::ForegroundRole:
        if (treeWidget() && !hasData())
            return QBrush(treeWidget()->palette().color(QPalette::PlaceholderText));
        break;
    default: break;
    }
    return QTreeWidgetItem::data(column, role);
}

bool CListWidgeItem::operator<(const QTreeWidgetItem &other) const
{
    const auto *row = dynamic_cast<const CListWidgeItem *>(&other);
    if (!row)
        return QTreeWidgetItem::operator<(other);
    const auto byNumber = slotNumber() <=> row->slotNumber();
    switch (treeWidget() ? treeWidget()->sortColumn() : CListWidge::NumberColumn) {
    case CListWidge::TitleColumn:
        if (const int order = titleText().compare(row->titleText(), Qt::CaseInsensitive))
            return order < 0;
        break;
    case CListWidge::ProtectedColumn:
        if (isProtected() != row->isProtected())
            return isProtected();
        break;
    case CListWidge::StoredColumn:
        if (const QDateTime mine = timeStored(), theirs = row->timeStored(); mine != theirs)
            return mine < theirs;
        break;
    default: break;
    }
    return byNumber < 0;
}
