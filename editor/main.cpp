// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "console/SimulatedConsole.h"
#include "editor/Appearance.h"
#include "editor/ClassReference.h"
#include "editor/DemonstrationScenes.h"
#include "editor/EditorOptions.h"
#include "editor/EditorPreferences.h"
#include "editor/FormReport.h"
#include "editor/MainWindow.h"
#include "editor/recording/Recorder.h"
#include "editor/recording/Recording.h"
#include "editor/recording/Replay.h"
#include "editor/ScreenPages.h"
#include "editor/ScreenRenderer.h"
#include "editor/soak/Soak.h"

#include <QApplication>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int Success = 0;
constexpr int Failure = 1;
constexpr int Unreadable = 2;

int fail(const QString &line)
{
    std::fprintf(stderr, "console-editor: %s\n", qPrintable(line));
    return Failure;
}

QStringList commandLine(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Without one Qt would end the program with a dump of core.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY")
           || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
           || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// What has to be in place before there is an application.
void prepareEnvironment(const EditorOptions &options)
{
    if (options.needsDisplay())
        return;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    qputenv("QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough");
    // Wayland's own asks for the compositor's keyboard, which may not have one for the keys of a soak.
    if (!qEnvironmentVariableIsSet("QT_IM_MODULE"))
        qputenv("QT_IM_MODULE", "compose");
}

/// What a page scrolls is painted anew under X11. Moving the pixels is quicker, but Qt does that on the
/// server alone, and sometimes the screen goes on showing them where they were.
void prepareScrolling()
{
    if (QGuiApplication::platformName() == QLatin1String("xcb")
        && !qEnvironmentVariableIsSet("QT_NO_FAST_MOVE"))
        qputenv("QT_NO_FAST_MOVE", "1");
}

QString ownFile(QStandardPaths::StandardLocation location, const char *name)
{
    return QDir(QStandardPaths::writableLocation(location)).filePath(name);
}

/// An editor goes on without its scenes; the window says what is wrong with them.
void openLibrary(const EditorOptions &options, SceneLibrary &library)
{
    QString error;
    if (!library.open(options.library.isEmpty()
                          ? ownFile(QStandardPaths::AppDataLocation, "scenes.sqlite")
                          : options.library,
                      &error))
        fail(error);
}

/// The same console state in every picture: an operator has been at work for a while.
void workForAWhile(const EditorOptions &options, SimulatedConsole &console)
{
    constexpr double busyRate = 4000;
    constexpr int workedSeconds = 60;
    console.setRate(options.rate > 0 ? options.rate : busyRate);
    for (int second = 0; second < workedSeconds; ++second) {
        console.step(1000);
        // The time code comes for as long as it is asked for, by the clock of a machine that may be slow.
        QCoreApplication::processEvents();
    }
}

int writeReference(const EditorOptions &options, ParameterMemory &memory, SimulatedConsole &console)
{
    workForAWhile(options, console);
    QString error;
    return ClassReference(memory, console).write(QDir(options.classes), &error) ? Success
                                                                                : fail(error);
}

int renderScreens(const EditorOptions &options, ParameterMemory &memory, SimulatedConsole &console)
{
    const QTemporaryDir folder;
    SceneLibrary library;
    QString error;
    if (!library.open(folder.filePath("scenes.sqlite"), &error))
        return fail(error);
    demonstrationscenes::fill(library, memory);
    MainWindow window(memory, console, library, options.forms);
    workForAWhile(options, console);
    window.resize(options.size);
    window.show();
    if (!ScreenRenderer(window).render(QDir(options.screens), &error))
        return fail(error);
    return window.pages().allOpened() ? Success : Failure;
}

int checkForms(const EditorOptions &options)
{
    ParameterMemory memory;
    QString error;
    if (!memory.load(options.model.isEmpty() ? ParameterMemory::builtInModel() : options.model,
                     &error))
        return fail(error);
    // What Qt and the controls say while the forms are built is among the findings.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QStringList forms = options.forms.isEmpty() ? ScreenPages::shippedForms() : options.forms;
    const FormReport report(forms, {&memory, &memory});
    std::fputs(qPrintable(options.json ? report.json() : report.lines()), stdout);
    if (report.anyUnreadable())
        return Unreadable;
    return report.findings().isEmpty() ? Success : Failure;
}

QStringList formsOf(const EditorOptions &options)
{
    return options.forms.isEmpty() ? ScreenPages::shippedForms() : options.forms;
}

int runReplay(const EditorOptions &options, ParameterMemory &memory)
{
    QString error;
    const auto recording = Recording::read(options.replay, &error);
    if (!recording)
        return fail(error);
    return replay::run(memory, *recording, formsOf(options)) ? Success : Failure;
}

int runSoak(const EditorOptions &options, ParameterMemory &memory)
{
    SoakPlan plan;
    plan.minutes = options.soak;
    plan.seed = options.seed;
    plan.forms = formsOf(options);
    plan.rate = options.rate > 0 ? options.rate : soak::FullRate;
    plan.pictures = options.screens;
    return soak::run(memory, plan) ? Success : Failure;
}

int runEditor(const EditorOptions &options)
{
    ParameterMemory memory;
    QString error;
    if (!memory.load(options.model.isEmpty() ? ParameterMemory::builtInModel() : options.model,
                     &error)) {
        fail(error);
        if (options.needsDisplay())
            QMessageBox::critical(nullptr, QObject::tr("Error"), error);
        return Failure;
    }
    if (!options.replay.isEmpty())
        return runReplay(options, memory);
    Recorder recorder(memory);
    if (!options.record.isEmpty() && !recorder.start(options.record, &error))
        return fail(error);
    if (options.soak > 0)
        return runSoak(options, memory);
    SimulatedConsole console(memory);
    console.setRate(options.rate);
    if (!options.classes.isEmpty())
        return writeReference(options, memory, console);
    if (!options.screens.isEmpty())
        return renderScreens(options, memory, console);
    SceneLibrary library;
    openLibrary(options, library);
    MainWindow window(memory, console, library, options.forms);
    window.preferences().keepIn(ownFile(QStandardPaths::AppConfigLocation, "settings.ini"));
    console.start();
    window.resize(options.size);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const EditorOptions early = EditorOptions::parse(commandLine(argc, argv));
    if (early.needsDisplay() && !hasDisplay()) {
        return fail(early.error.isEmpty()
                        ? "there is no display; --screens DIR draws the screens without one"
                        : early.error);
    }
    prepareEnvironment(early);
    QApplication application(argc, argv);
    prepareScrolling();
    QApplication::setApplicationName("console-editor");
    QApplication::setApplicationVersion(CONSOLEWIDGETS_VERSION);
    // Qt has taken its own options out of the arguments.
    const EditorOptions options = EditorOptions::parse(QApplication::arguments());
    if (!options.error.isEmpty())
        return fail(options.error);
    if (!options.answer.isEmpty()) {
        std::fputs(qPrintable(options.answer), stdout);
        return Success;
    }
    if (options.check)
        return checkForms(options);
    appearance::apply(application);
    return runEditor(options);
}
