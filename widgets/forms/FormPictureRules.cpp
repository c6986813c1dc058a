// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRules.h"

#include "widgets/buttons/COnOffButton.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CPixmapMeter.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>

#include <initializer_list>

namespace {

constexpr int FewestKeyRows = 2; // on and off
constexpr int MostKeyRows = 4;   // held and disabled

QString tr(const char *source)
{
    return QCoreApplication::translate("FormCheck", source);
}

QString inWords(const QSize &size)
{
    return QString("%1 x %2").arg(size.width()).arg(size.height());
}

/// Without decoding the picture; empty for what is none.
QSize sizeOf(const QString &file)
{
    return file.isEmpty() ? QSize(0, 0) : QImageReader(file).size().expandedTo({0, 0});
}

/// Columns and rows of the widget's strips.
QSize gridOf(const CheckedWidget &widget)
{
    const int rows = widget.number("nSubImages");
    const bool hasColumns = widget.widget().metaObject()->indexOfProperty("nImageCategories") >= 0;
    const QSize grid(hasColumns ? widget.number("nImageCategories") : 1, rows);
    const auto *meter = widget.as<CPixmapMeter>();
    return meter && meter->subDirection() != CPixmapMeter::ColImages ? grid.transposed() : grid;
}

void checkStrip(const CheckedWidget &widget, const char *property)
{
    const QSize size = sizeOf(widget.text(property));
    const QSize grid = gridOf(widget);
    if (size.isEmpty())
        return;
    if (grid.isEmpty()) {
        widget.report(FormFinding::Picture, property,
                      tr("nothing of it is shown in %1 columns and %2 rows")
                          .arg(grid.width())
                          .arg(grid.height()));
    } else if (size.width() % grid.width() != 0 || size.height() % grid.height() != 0) {
        widget.report(FormFinding::Picture, property,
                      tr("a picture of %1 pixels does not divide into %2 columns and %3 rows")
                          .arg(inWords(size))
                          .arg(grid.width())
                          .arg(grid.height()));
    }
}

/// Pictures that stand for each other; the first is the measure.
void checkAlike(const CheckedWidget &widget, std::initializer_list<const char *> properties)
{
    const char *const first = *properties.begin();
    const QSize measure = sizeOf(widget.text(first));
    for (const char *const property : properties) {
        const QSize size = sizeOf(widget.text(property));
        if (!measure.isEmpty() && !size.isEmpty() && size != measure)
            widget.report(FormFinding::Picture, property,
                          tr("a picture of %1 pixels beside %2 of %3")
                              .arg(inWords(size), first, inWords(measure)));
    }
}

/// The file for screens with twice the pixels, if there is one.
void checkDense(const CheckedWidget &widget, const char *property)
{
    const QFileInfo plain(widget.text(property));
    const QString dense = plain.path() + '/' + plain.completeBaseName() + "@2x." + plain.suffix();
    if (plain.completeBaseName().endsWith("@2x") || !QFileInfo::exists(dense))
        return;
    const QSize size = sizeOf(dense);
    if (size != 2 * sizeOf(plain.filePath()))
        widget.report(FormFinding::Picture, property,
                      tr("\"%1\" of %2 pixels is not twice as large")
                          .arg(QFileInfo(dense).fileName(), inWords(size)));
}

} // namespace

void formrules::checkPictures(const CheckedWidget &widget)
{
    for (const char *strip : {"combinedImage", "combinedOnImage", "combinedOffImage"})
        checkStrip(widget, strip);
    checkAlike(widget, {"combinedOnImage", "combinedOffImage"});
    checkAlike(widget, {"meterImage", "meterBgndImage"});
    checkAlike(widget, {"closeImage", "moveImage", "openImage"});
    for (const FormObject::Property &property : widget.written()) {
        if (property.kind == QLatin1StringView("pixmap") && !property.text.isEmpty())
            checkDense(widget, property.name.toUtf8());
    }

    const int rows = widget.number("nSubImages");
    if (widget.as<COnOffButton>() && widget.writes("combinedImage") && rows != 0
        && (rows < FewestKeyRows || rows > MostKeyRows))
        widget.report(FormFinding::Rows, "nSubImages",
                      tr("a key has %1 to %2 pictures, not %3")
                          .arg(FewestKeyRows)
                          .arg(MostKeyRows)
                          .arg(rows));
    if (const auto *dial = widget.as<CDial>(); dial && dial->disabledImageIndex() >= rows)
        widget.report(FormFinding::Rows, "disabledImageIndex",
                      tr("the strip has no row %1").arg(dial->disabledImageIndex()));
}
