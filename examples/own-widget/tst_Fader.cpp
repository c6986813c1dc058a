// SPDX-License-Identifier: MIT
// The fader keeps the contract of bound controls; and what is its own: hands and undo.
#include "Fader.h"

#include "companions/memory/ParameterMemory.h"
#include "testkit/BoundContract.h"
#include "testkit/Gestures.h"
#include "testkit/RecordingMemory.h"

#include <QApplication>
#include <QTest>
#include <QUndoStack>

class tst_Fader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDragIsOneStepOfUndo();
    void theWheelWritesOncePerNotch();
};

void tst_Fader::aDragIsOneStepOfUndo()
{
    ParameterMemory memory;
    QVERIFY(memory.load(ParameterMemory::builtInModel()));
    Fader fader;
    fader.setNamedAddress(QStringLiteral("kInputFader/kFader"));
    fader.resize(30, 300);
    fader.show();
    QVERIFY(memory.bindProxy(&fader, 3));
    const int before = fader.value();
    gesture::press(fader, {15, 295});
    for (int y = 290; y >= 50; y -= 10)
        gesture::moveTo(fader, QPointF(15, y));
    gesture::release(fader, {15, 50});
    QVERIFY(fader.value() > before);
    QCOMPARE(memory.undoStack()->count(), 1);
    memory.undoStack()->undo();
    QTRY_COMPARE(fader.value(), before);
}

void tst_Fader::theWheelWritesOncePerNotch()
{
    RecordingMemory memory;
    memory.at(3, 7, 2).value = 50;
    Fader fader;
    memory.bind(fader, 3, 7, 2);
    memory.take();
    gesture::wheel(fader, -2);
    QCOMPARE(memory.take({"writeValue"}).size(), 2);
    QCOMPARE(memory.at(3, 7, 2).value, fader.value());
    QVERIFY(fader.value() < 50);
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    BoundContract contract;
    contract.add<Fader>();
    contract.except("Fader", BoundContract::ForgetsBlocked);
    tst_Fader own;
    return QTest::qExec(&contract, argc, argv) | QTest::qExec(&own, argc, argv);
}

#include "tst_Fader.moc"
