// SPDX-License-Identifier: MIT
#include "widgets/forms/PictureStore.h"

#include "interfaces/utilities/NS_Utilities.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>

namespace {

// Pixmaps must be gone before the application is, hence the routine that clears the store.
QHash<QString, QPixmap> &store()
{
    static QHash<QString, QPixmap> pictures;
    static const bool cleared = [] {
        qAddPostRoutine([] { store().clear(); });
        return true;
    }();
    Q_UNUSED(cleared)
    return pictures;
}

} // namespace

QString picturestore::fileFor(const QString &name)
{
    const QString file = NS_Utilities::pixmapFile(name, qGuiApp->devicePixelRatio());
    return QFileInfo(file).isReadable() ? file : QString();
}

QPixmap picturestore::picture(const QString &file)
{
    QPixmap &known = store()[file];
    if (known.isNull())
        known = QPixmap::fromImage(QImage(file));
    return known;
}

void picturestore::dropUnused()
{
    store().removeIf(
        [](const auto &entry) { return entry.value().isNull() || entry.value().isDetached(); });
}
