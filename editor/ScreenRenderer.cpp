// SPDX-License-Identifier: MIT
#include "editor/ScreenRenderer.h"

#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"

#include <QApplication>
#include <QPixmap>

bool ScreenRenderer::render(const QDir &folder, QString *error)
{
    if (!folder.mkpath(".")) {
        *error = QString("%1: cannot be made").arg(folder.path());
        return false;
    }
    ScreenPages &pages = m_window.pages();
    for (int index = 0; index < pages.count(); ++index) {
        pages.setCurrentIndex(index);
        if (QWidget *focused = m_window.focusWidget())
            focused->clearFocus();
        QApplication::processEvents();
        const QString file = folder.filePath(pages.pageName(index) + ".png");
        if (!m_window.grab().save(file)) {
            *error = QString("%1: cannot be written").arg(file);
            return false;
        }
    }
    return true;
}
