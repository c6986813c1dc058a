// SPDX-License-Identifier: MIT
#include "bench/FreshProcess.h"

#include <QCoreApplication>
#include <QProcess>

QByteArray freshprocess::outputOf(const QStringList &arguments, const QString &platform)
{
    QProcess child;
    if (!platform.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
        child.setProcessEnvironment(environment);
    }
    child.start(QCoreApplication::applicationFilePath(), arguments);
    const bool ran = child.waitForFinished(-1) && child.exitStatus() == QProcess::NormalExit
                     && child.exitCode() == 0;
    if (!ran)
        qFatal("%s does not work%s: %s", qPrintable(arguments.join(u' ')),
               qPrintable(platform.isEmpty() ? platform : QLatin1String(" on ") + platform),
               child.readAllStandardError().constData());
    return child.readAllStandardOutput();
}
