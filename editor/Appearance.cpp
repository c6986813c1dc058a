// SPDX-License-Identifier: MIT
#include "editor/Appearance.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

namespace {

QPalette darkPalette()
{
    using namespace appearance;
    QPalette palette;
    palette.setColor(QPalette::Window, Window);
    palette.setColor(QPalette::WindowText, Text);
    palette.setColor(QPalette::Base, QColor(17, 19, 21));
    palette.setColor(QPalette::AlternateBase, Window);
    palette.setColor(QPalette::Text, Text);
    palette.setColor(QPalette::PlaceholderText, FaintText);
    palette.setColor(QPalette::Button, Panel);
    palette.setColor(QPalette::ButtonText, Text);
    palette.setColor(QPalette::BrightText, OfflineLit);
    palette.setColor(QPalette::Light, QColor(70, 76, 83));
    palette.setColor(QPalette::Midlight, QColor(54, 59, 65));
    palette.setColor(QPalette::Mid, QColor(32, 35, 39));
    palette.setColor(QPalette::Dark, QColor(14, 15, 17));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, Highlight);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::Link, Highlight);
    palette.setColor(QPalette::ToolTipBase, QColor(58, 63, 70));
    palette.setColor(QPalette::ToolTipText, Text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(108, 115, 123));
    return palette;
}

} // namespace

void appearance::apply(QApplication &application)
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(darkPalette());
    QToolTip::setPalette(darkPalette());
    // Lighter than any panel that a menu may open over.
    QPalette menu = darkPalette();
    menu.setColor(QPalette::Base, QColor(52, 57, 63));
    QApplication::setPalette(menu, "QMenu");
    QFont font = QApplication::font();
    font.setPointSizeF(9);
    application.setFont(font);
}
