// SPDX-License-Identifier: MIT
#include "bench/FreshProcess.h"

#include <QGuiApplication>
#include <QProcess>

namespace {

const QString Platform = QStringLiteral("QT_QPA_PLATFORM");
const QString Scale = QStringLiteral("QT_SCALE_FACTOR");
const QString ScaleRounding = QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY");

QProcessEnvironment environmentFor(const freshprocess::Setting &setting)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!setting.platform.isEmpty())
        environment.insert(Platform, setting.platform);
    if (!setting.scale.isEmpty()) {
        environment.insert(Scale, setting.scale);
        environment.insert(ScaleRounding, QStringLiteral("PassThrough"));
    }
    return environment;
}

} // namespace

QByteArray freshprocess::outputOf(const QStringList &arguments, const Setting &setting)
{
    QProcess child;
    child.setProcessEnvironment(environmentFor(setting));
    child.start(QCoreApplication::applicationFilePath(), arguments);
    const bool ran = child.waitForFinished(-1) && child.exitStatus() == QProcess::NormalExit
                     && child.exitCode() == 0;
    if (!ran)
        qFatal("%s does not work on %s, scale \"%s\": %s", qPrintable(arguments.join(u' ')),
               qPrintable(child.processEnvironment().value(Platform)), qPrintable(setting.scale),
               child.readAllStandardError().constData());
    return child.readAllStandardOutput();
}

bool freshprocess::isScaled(const QString &scale)
{
    if (qEnvironmentVariable(qPrintable(Scale)) != scale)
        return false;
    if (qGuiApp->devicePixelRatio() != scale.toDouble())
        qFatal("the screen is scaled by %g, not by %s", qGuiApp->devicePixelRatio(),
               qPrintable(scale));
    return true;
}
