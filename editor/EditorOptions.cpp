// SPDX-License-Identifier: MIT
#include "editor/EditorOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace {

constexpr int highestRate = 1'000'000;
constexpr double highestScale = 4;
constexpr int largestSide = 16384;
constexpr double longestSoak = 7 * 24 * 60; // minutes

const QCommandLineOption modelOption("model", "The console model to load (JSON).", "FILE");
const QCommandLineOption libraryOption(
    "library", "The file with the scenes; --screens never uses or changes it.", "FILE");
const QCommandLineOption screensOption(
    "screens", "Draw every screen into a PNG file in DIR and exit; needs no display.", "DIR");
const QCommandLineOption checkOption(
    "check",
    "Look for faults in the forms and exit: with 1 if there are any, with 2 if a form cannot "
    "be read. Needs no display.");
const QCommandLineOption jsonOption("json", "Tell the faults that --check finds as JSON.");
const QCommandLineOption classesOption(
    "classes",
    "Write what the widgets are and have, with a picture of each, into DIR and exit; needs "
    "no display.",
    "DIR");
const QCommandLineOption rateOption("rate", "Simulated changes of the console per second.", "N");
const QCommandLineOption sizeOption("size", "Size of the window, for example 1280x800.", "WxH");
const QCommandLineOption scaleOption("scale", "Scale factor of the pictures of --screens.", "F");

const QCommandLineOption soakOption(
    "soak",
    "Use the editor hard for MINUTES and check all the while that it shows what the memory holds; "
    "exit "
    "with 1 if not. Needs no display. With --screens, pictures of what is wrong go to DIR.",
    "MINUTES");
const QCommandLineOption seedOption("seed", "What --soak does by chance; 1 unless told otherwise.",
                                    "N");

const QCommandLineOption recordOption(
    "record", "Record what becomes of all parameters, with times, into FILE.", "FILE");
const QCommandLineOption replayOption(
    "replay",
    "Open the screens, do once more what was recorded in FILE, and exit: with 1 if a control shows "
    "something else. Needs no display.",
    "FILE");

/// The program's own name stands first: before there is an application, nobody else knows it.
QString helpText(QCommandLineParser &parser)
{
    QString text = parser.helpText();
    const qsizetype usageEnd = text.indexOf('\n');
    return "Usage: console-editor [options] [FORM...]" + text.mid(usageEnd);
}

void readRate(EditorOptions &options, const QString &text)
{
    bool valid = false;
    options.rate = text.toInt(&valid);
    if (!valid || options.rate < 0 || options.rate > highestRate)
        options.error =
            QString("--rate: \"%1\" is no number from 0 to %2").arg(text).arg(highestRate);
}

void readSoak(EditorOptions &options, const QString &text)
{
    options.soak = text.toDouble();
    if (!(options.soak > 0 && options.soak <= longestSoak))
        options.error = QString("--soak: \"%1\" is no number of minutes, at most %2")
                            .arg(text)
                            .arg(longestSoak);
}

void readSeed(EditorOptions &options, const QString &text)
{
    bool valid = false;
    options.seed = text.toUInt(&valid);
    if (!valid)
        options.error = QString("--seed: \"%1\" is no number from 0 to 4294967295").arg(text);
}

void readScale(EditorOptions &options, const QString &text)
{
    const double scale = text.toDouble();
    if (scale >= 1 && scale <= highestScale)
        options.scale = scale;
    else
        options.error =
            QString("--scale: \"%1\" is no factor from 1 to %2").arg(text).arg(highestScale);
}

void readSize(EditorOptions &options, const QString &text)
{
    static const QRegularExpression form("^(\\d{1,5})x(\\d{1,5})$");
    const QRegularExpressionMatch match = form.match(text);
    options.size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    if (options.size.isEmpty() || options.size.width() > largestSide
        || options.size.height() > largestSide)
        options.error = QString("--size: \"%1\" is no size like 1280x800").arg(text);
}

} // namespace

EditorOptions EditorOptions::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Editor for a digital mixing console.");
    parser.addOptions({modelOption, libraryOption, screensOption, checkOption, jsonOption,
                       classesOption, rateOption, sizeOption, scaleOption, soakOption, seedOption,
                       recordOption, replayOption});
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument("FORM", "Form files to open instead of the shipped screens.",
                                 "[FORM...]");
    EditorOptions options;
    if (!parser.parse(arguments))
        options.error = parser.errorText();
    else if (parser.isSet(help))
        options.answer = helpText(parser);
    else if (parser.isSet(version))
        options.answer = "console-editor " CONSOLEWIDGETS_VERSION "\n";
    options.forms = parser.positionalArguments();
    options.model = parser.value(modelOption);
    options.library = parser.value(libraryOption);
    options.screens = parser.value(screensOption);
    options.record = parser.value(recordOption);
    options.replay = parser.value(replayOption);
    options.classes = parser.value(classesOption);
    options.check = parser.isSet(checkOption);
    options.json = parser.isSet(jsonOption);
    if (options.json && !options.check && options.error.isEmpty())
        options.error = "--json goes with --check";
    if (parser.isSet(rateOption))
        readRate(options, parser.value(rateOption));
    if (parser.isSet(soakOption))
        readSoak(options, parser.value(soakOption));
    if (parser.isSet(seedOption))
        readSeed(options, parser.value(seedOption));
    if (parser.isSet(scaleOption))
        readScale(options, parser.value(scaleOption));
    if (parser.isSet(sizeOption))
        readSize(options, parser.value(sizeOption));
    return options;
}
