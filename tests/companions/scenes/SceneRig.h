// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "tests/support/SyntheticModel.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

/// Another program at the same file.
class OtherConnection
{
public:
    explicit OtherConnection(const QString &fileName)
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "other");
        database.setDatabaseName(fileName);
        if (!database.open())
            qFatal("cannot open %s", qPrintable(fileName));
    }
    ~OtherConnection()
    {
        QSqlDatabase::database("other").close();
        QSqlDatabase::removeDatabase("other");
    }
    static QVariant run(const QString &statement)
    {
        QSqlQuery query(QSqlDatabase::database("other"));
        if (!query.exec(statement))
            qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
        return query.next() ? query.value(0) : QVariant();
    }
};

/// A library in a folder of its own, and scenes to store.
class SceneRig
{
public:
    SceneRig() : model(4, 5, 100)
    {
        QString error;
        if (!memory.load(model.fileName(), &error) || !library.open(fileName(), &error))
            qFatal("%s", qPrintable(error));
    }

    QString fileName(const char *name = "scenes.sqlite") const { return folder.filePath(name); }

    /// A scene of which every value depends on `number`.
    ParameterSnapshot scene(int number) const
    {
        ParameterSnapshot snapshot = memory.snapshot();
        for (size_t i = 0; i < snapshot.values.size(); ++i)
            snapshot.values[i] = number + static_cast<int>(i);
        return snapshot;
    }
    /// Scenes 101, 102 ... in the slots 1, 2 ...
    void fill(int count)
    {
        for (int slot = 1; slot <= count; ++slot)
            QVERIFY(library.store(slot, scene(100 + slot)));
    }
    /// The numbers of the scenes in slots 1 to `count`, 0 for empty ones, -1 for other contents.
    QList<int> numbers(int count)
    {
        QList<int> found;
        for (int slot = 1; slot <= count; ++slot) {
            const auto recalled = library.recall(slot);
            const int number = recalled ? recalled->values.front() : 0;
            found << (recalled && recalled->values != scene(number).values ? -1 : number);
        }
        return found;
    }
    /// The library as it is found when it is opened anew.
    bool reopen()
    {
        library.close();
        return library.open(fileName());
    }

    SyntheticModel model;
    QTemporaryDir folder;
    ParameterMemory memory;
    SceneLibrary library;
};
