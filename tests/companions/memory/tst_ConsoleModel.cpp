// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

#include <QtTest>

namespace {

/// A small model that is right, with one piece of its text replaced.
QByteArray model(const QByteArray &piece = {}, const QByteArray &by = {})
{
    const QByteArray right = R"({
  "tables": [{"id": 1, "kind": "list", "texts": ["OFF", "ON"]},
             {"id": 2, "kind": "linear", "first": -6, "scale": 0.5, "decimals": 1},
             {"id": 3, "kind": "logarithmic", "first": 20, "last": 200, "steps": 5}],
  "meterTables": [{"number": 1, "codes": [10, 20, 30]}],
  "preferences": {"6": true},
  "blocks": [
    {"name": "kFirst", "group": 1, "label": "First", "elements": 4, "parameters": [
      {"name": "kLevel", "index": 0, "min": -12, "max": 12, "default": 0, "altDefault": 3, "text": 2, "detents": [-4, 0, 4]},
      {"name": "kPatch", "index": 1, "min": 0, "max": 9, "default": 1, "defaultStep": 2}]},
    {"name": "kOther", "group": 2, "parameters": [
      {"name": "kOn", "index": 0, "min": 0, "max": 1, "default": 0, "text": 1, "label": "On"}]}]
})";
    return piece.isEmpty() ? right : QByteArray(right).replace(piece, by);
}

} // namespace

class tst_ConsoleModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatIsThere();
    void saysWhatIsWrongAndWhere_data();
    void saysWhatIsWrongAndWhere();
    void namesTheLineOfBrokenJson();
    void aMissingFileIsAnError();
    void theShippedModelHasTheFixedAddresses_data();
    void theShippedModelHasTheFixedAddresses();
};

void tst_ConsoleModel::readsWhatIsThere()
{
    const auto read = ConsoleModel::parse(model(), "small.json");
    QVERIFY(read);
    QCOMPARE(read->parameters().size(), size_t(3));
    const ConsoleModel::Parameter &level = read->parameters()[0];
    QCOMPARE(read->addressOf(level), QString("kFirst/kLevel"));
    QCOMPARE(read->labelOf(level, 2), QString("First 3 kLevel"));
    QCOMPARE(level.elements, 4);
    QCOMPARE(level.positions(), qint64(25));
    QCOMPARE(read->parameters()[1].defaultOf(3), 7);
    QCOMPARE(read->labelOf(read->parameters()[2], 0), QString("kOther On"));
    QCOMPARE(*read->meterTable(1), (std::vector<quint16>{10, 20, 30}));
    QCOMPARE(read->preferences().value(6), QVariant(true));
    QVERIFY(!read->textTable(9));
}

void tst_ConsoleModel::saysWhatIsWrongAndWhere_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<QByteArray>("by");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const char *piece, const char *by, const char *message) {
        QTest::newRow(name) << QByteArray(piece) << QByteArray(by) << QString(message);
    };
    row("text for a number", "\"min\": -12", "\"min\": \"low\"",
        "blocks[0].parameters[0].min: a whole number is needed");
    row("fraction for a number", "\"max\": 9", "\"max\": 9.5",
        "blocks[0].parameters[1].max: a whole number is needed");
    row("number beyond 32 bits", "\"max\": 9", "\"max\": 3000000000",
        "blocks[0].parameters[1].max: 3000000000 is not within -2147483648 and 2147483647");
    row("maximum below minimum", "\"min\": 0, \"max\": 9", "\"min\": 0, \"max\": -1",
        "blocks[0].parameters[1].max: -1 is below the minimum 0");
    row("default outside", "\"default\": 1", "\"default\": 10",
        "blocks[0].parameters[1].default: 10 is not within 0 and 9");
    row("last default outside", "\"defaultStep\": 2", "\"defaultStep\": 3",
        "blocks[0].parameters[1].defaultStep: the last element's default, 10, is not within 0 and "
        "9");
    row("alternative default outside", "\"altDefault\": 3", "\"altDefault\": 13",
        "blocks[0].parameters[0].altDefault: 13 is not within -12 and 12");
    row("group too high", "\"group\": 2", "\"group\": 1024",
        "blocks[1].group: 1024 is not within 0 and 1023");
    row("index too high", "\"index\": 1", "\"index\": 2048",
        "blocks[0].parameters[1].index: 2048 is not within 0 and 2047");
    row("no elements", "\"elements\": 4", "\"elements\": -1",
        "blocks[0].elements: -1 is not within 1 and 2048");
    row("too many elements", "\"elements\": 4", "\"elements\": 2049",
        "blocks[0].elements: 2049 is not within 1 and 2048");
    row("block name twice", "\"kOther\"", "\"kFirst\"",
        "blocks[1].name: there is a block \"kFirst\" already");
    row("parameter name twice", "\"kPatch\"", "\"kLevel\"",
        "blocks[0].parameters[1].name: there is a parameter \"kFirst/kLevel\" already");
    row("address twice in a block", "\"index\": 1", "\"index\": 0",
        "blocks[0].parameters[1].index: group 1, index 0 belongs to blocks[0].parameters[0] "
        "already");
    row("address twice across blocks", "\"group\": 2", "\"group\": 1",
        "blocks[1].parameters[0].index: group 1, index 0 belongs to blocks[0].parameters[0] "
        "already");
    row("name that would read as a unit", "\"kOther\"", "\"05Other\"",
        "blocks[1].name: \"05Other\" is no name: a lower-case letter, then letters, digits and "
        "underscores");
    row("no such table", "\"text\": 1", "\"text\": 7",
        "blocks[1].parameters[0].text: there is no table 7");
    row("table twice", "\"id\": 2", "\"id\": 1", "tables[1].id: there is a table 1 already");
    row("unknown kind of table", "\"linear\"", "\"cubic\"",
        "tables[1].kind: \"cubic\" is no kind of table: list, linear or logarithmic");
    row("flat scale", "\"scale\": 0.5", "\"scale\": 0",
        "tables[1].scale: a number above 0 is needed");
    row("falling frequencies", "\"last\": 200", "\"last\": 20",
        "tables[2].last: a number above \"first\" is needed");
    row("empty list", "[\"OFF\", \"ON\"]", "[]", "tables[0].texts: at least one text is needed");
    row("meter codes that fall", "[10, 20, 30]", "[10, 20, 20]",
        "meterTables[0].codes[2]: codes must ascend, but 20 follows 20");
    row("meter code beyond 14 bits", "[10, 20, 30]", "[10, 16384]",
        "meterTables[0].codes[1]: 16384 is not within 0 and 16383");
    row("detents that fall", "[-4, 0, 4]", "[-4, 0, -1]",
        "blocks[0].parameters[0].detents[2]: detents must ascend, but -1 follows 0");
    row("preference without a number", "\"6\"", "\"six\"",
        "preferences: \"six\" is no preference number");
    row("misspelt key", "\"altDefault\"", "\"altDefalt\"",
        "blocks[0].parameters[0]: \"altDefalt\" is not known here");
    row("key missing", "\"max\": 9, ", "", "blocks[0].parameters[1]: \"max\" is missing");
    row("object for an array", "[10, 20, 30]", "{}", "meterTables[0].codes: an array is needed");
    row("number for an object", "{\"6\": true}", "6", "preferences: an object is needed");
}

void tst_ConsoleModel::saysWhatIsWrongAndWhere()
{
    QFETCH(QByteArray, piece);
    QFETCH(QByteArray, by);
    QFETCH(QString, message);
    QVERIFY(model().contains(piece));
    QString error;
    QVERIFY(!ConsoleModel::parse(model(piece, by), "small.json", &error));
    QCOMPARE(error, "small.json: " + message);
}

void tst_ConsoleModel::namesTheLineOfBrokenJson()
{
    QString error;
    QVERIFY(!ConsoleModel::parse("{\n\"blocks\": [\n}", "broken.json", &error));
    QVERIFY2(error.startsWith("broken.json: line 3, byte "), qPrintable(error));
}

void tst_ConsoleModel::aMissingFileIsAnError()
{
    QString error;
    ParameterMemory memory;
    QVERIFY(!memory.load("/nowhere/console.json", &error));
    QVERIFY2(error.startsWith("/nowhere/console.json: "), qPrintable(error));
    QVERIFY(!memory.isReady());
    QVERIFY(memory.load(ParameterMemory::builtInModel(), &error));
    QVERIFY(!memory.load(ParameterMemory::builtInModel(), &error));
    QVERIFY(memory.isReady());
}

void tst_ConsoleModel::theShippedModelHasTheFixedAddresses_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("elements");
    QTest::newRow("kBackupInputHA/kHAConnected") << 420 << 2 << 48;
    // The curves find the other parameters of a block by these indexes.
    const std::pair<const char *, int> indexes[] = {
        {"kType", 1}, {"kRange", 10}, {"kRatio", 13}, {"kGain", 14}, {"kKnee", 15}};
    const std::tuple<const char *, int, int> blocks[] = {{"kInputDynamics1", 54, 48},
                                                         {"kInputDynamics2", 57, 48},
                                                         {"kMixDynamics", 81, 16},
                                                         {"kMatrixDynamics", 98, 8},
                                                         {"kStereoDynamics", 112, 3}};
    for (const auto &[block, group, elements] : blocks) {
        for (const auto &[name, index] : indexes)
            QTest::addRow("%s/%s", block, name) << group << index << elements;
    }
    // What lists of channels count: the sizes of the four kinds.
    for (const auto &[name, elements] : {std::pair{"kInputPair/kPair", 48},
                                         {"kMixPair/kPair", 16},
                                         {"kMatrixPair/kPair", 8},
                                         {"kStereoPair/kPair", 3},
                                         {"kGroupID_Input/kGroupID", 48},
                                         {"kGroupID_Stereo/kGroupID", 3},
                                         {"kSetupHX612/kHX612Port", 16},
                                         {"kHX612Host/kHX612HostID", 1},
                                         {"kSetupTCEventParams/kTCEventFrameRate", 1},
                                         {"kPatchInInput/kPatchIn", 48},
                                         {"kHeadAmp/k48V", 128}})
        QTest::newRow(name) << -1 << -1 << elements;
}

void tst_ConsoleModel::theShippedModelHasTheFixedAddresses()
{
    QFETCH(int, group);
    QFETCH(int, index);
    QFETCH(int, elements);
    QString error;
    const auto shipped = ConsoleModel::read(ParameterMemory::builtInModel(), &error);
    QVERIFY2(shipped, qPrintable(error));
    const auto &all = shipped->parameters();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto &parameter) {
        return shipped->addressOf(parameter) == QTest::currentDataTag();
    });
    QVERIFY(found != all.end());
    QCOMPARE(found->elements, elements);
    if (group >= 0)
        QCOMPARE(std::pair(shipped->groupOf(*found), found->index), std::pair(group, index));
}

QTEST_GUILESS_MAIN(tst_ConsoleModel)
#include "tst_ConsoleModel.moc"
