// SPDX-License-Identifier: MIT
// Forms through the form check, which builds them.
#include "fuzz/FuzzMemory.h"
#include "widgets/forms/FormCheck.h"

#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    ParameterMemory &memory = fuzz::memory();
    static const QTemporaryDir folder;
    fuzz::require(folder.isValid());
    QFile form(folder.filePath(QStringLiteral("form.ui")));
    fuzz::require(form.open(QIODevice::WriteOnly));
    form.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    form.close();
    const FormFindings findings = checkForm(form.fileName(), {&memory, &memory});
    fuzz::require(findings.size() <= MostFormFindings);
    return 0;
}
