// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QTemporaryDir>

/// Console models of any size, as files.
class SyntheticModel
{
public:
    /// A block "kBlock7" in group 7, with a parameter "kValue3" at index 3, and so on; all from -1000
    /// to 1000.
    SyntheticModel(int blocks, int parameters, int elements)
    {
        QByteArrayList described;
        for (int block = 0; block < blocks; ++block)
            described << describe(block, parameters, elements);
        write("{\"blocks\": [" + described.join(',') + "]}");
    }
    explicit SyntheticModel(const QByteArray &json) { write(json); }

    QString fileName() const { return m_folder.filePath("model.json"); }

private:
    static QByteArray describe(int block, int parameters, int elements)
    {
        QByteArrayList described;
        for (int index = 0; index < parameters; ++index) {
            const QByteArray number = QByteArray::number(index);
            described << "{\"name\": \"kValue" + number + "\", \"index\": " + number
                             + ", \"min\": -1000, \"max\": 1000, \"default\": 0}";
        }
        const QByteArray number = QByteArray::number(block);
        return "{\"name\": \"kBlock" + number + "\", \"group\": " + number + ", \"elements\": "
               + QByteArray::number(elements) + ", \"parameters\": [" + described.join(',') + "]}";
    }
    void write(const QByteArray &json) const
    {
        QFile file(fileName());
        if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    QTemporaryDir m_folder;
};
