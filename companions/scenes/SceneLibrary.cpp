// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneLibrary.h"

#include "companions/scenes/SceneFault.h"
#include "companions/scenes/SceneFile.h"
#include "companions/scenes/SceneTable.h"

#include <functional>
#include <numeric>

namespace {

/// How to take back what was last done to a slot.
struct UndoState
{
    enum Kind { Contents, Protection };

    Kind kind = Contents;
    std::optional<SceneRecord> before; ///< for Contents; nothing: the slot was empty
    bool wasProtected = false;         ///< for Protection
};

/// "#012".
QString numberOf(int slot)
{
    return QStringLiteral("#%1").arg(slot, 3, 10, QLatin1Char('0'));
}

[[noreturn]] void refuse(const QString &message)
{
    throw SceneFault{message};
}

void requireSlot(int slot)
{
    if (slot < 1 || slot > SceneLibrary::SlotCount)
        refuse(QStringLiteral("There is no scene %1.").arg(numberOf(slot)));
}

void requireData(const SceneInfo &info, int slot)
{
    if (!info.hasData)
        refuse(QStringLiteral("Scene %1 is empty.").arg(numberOf(slot)));
}

void requireNotReadOnly(const SceneInfo &info, int slot)
{
    if (info.isReadOnly)
        refuse(QStringLiteral("Scene %1 is read only.").arg(numberOf(slot)));
}

void requireChangeable(const SceneInfo &info, int slot)
{
    requireNotReadOnly(info, slot);
    if (info.isProtected)
        refuse(QStringLiteral("Scene %1 is protected.").arg(numberOf(slot)));
}

QString checkedTitle(const QString &title)
{
    QString clean = title.simplified();
    clean.removeIf([](QChar each) { return each.category() == QChar::Other_Control; });
    if (clean.isEmpty())
        refuse(QStringLiteral("A scene needs a title."));
    if (clean.size() > SceneLibrary::MaximumTitleLength)
        refuse(QStringLiteral("A title can have up to %1 characters.")
                   .arg(SceneLibrary::MaximumTitleLength));
    return clean;
}

} // namespace

struct SceneLibrary::Private
{
    /// Runs the steps of an operation and turns what they throw into `error`.
    static bool attempt(QString *error, const std::function<void()> &steps);
    /// Runs the steps of a command in one transaction; afterwards the listing and the undo states
    /// that they noted hold.
    bool command(QString *error, const std::function<void()> &steps);
    void requireOpen() const;

    SceneRecord readWhole(int slot) const;
    void noteContents(int slot) { noted[slot] = {UndoState::Contents, table.read(slot), false}; }
    void takeBack(int slot, const UndoState &state);

    SceneFile file;
    SceneTable table{file};
    std::map<int, SceneInfo> scenes; ///< of the slots that are not empty
    std::map<int, UndoState> undo;
    std::map<int, UndoState> noted; ///< by the command that is running
    QString whyClosed = QStringLiteral("There is no scene library.");
};

bool SceneLibrary::Private::attempt(QString *error, const std::function<void()> &steps)
{
    try {
        steps();
        return true;
    } catch (const SceneFault &fault) {
        if (error)
            *error = fault.message;
    }
    return false;
}

void SceneLibrary::Private::requireOpen() const
{
    if (!file.isOpen())
        refuse(whyClosed);
}

bool SceneLibrary::Private::command(QString *error, const std::function<void()> &steps)
{
    return attempt(error, [&] {
        requireOpen();
        if (!file.readOnlyReason().isEmpty())
            refuse(file.readOnlyReason());
        SceneFile::Transaction transaction(file);
        noted.clear();
        steps();
        std::map<int, SceneInfo> listed = table.list();
        transaction.commit();
        scenes.swap(listed);
        for (auto &[slot, state] : noted)
            undo[slot] = std::move(state);
    });
}

SceneRecord SceneLibrary::Private::readWhole(int slot) const
{
    std::optional<SceneRecord> record = table.read(slot);
    requireData(record ? record->info : SceneInfo(), slot);
    if (!table.snapshot(*record))
        refuse(QStringLiteral("Scene %1 is damaged.").arg(numberOf(slot)));
    return *std::move(record);
}

void SceneLibrary::Private::takeBack(int slot, const UndoState &state)
{
    const SceneInfo now = table.info(slot);
    if (state.kind == UndoState::Protection) {
        requireNotReadOnly(now, slot);
        table.setProtected(slot, state.wasProtected);
        return;
    }
    requireChangeable(now, slot);
    if (state.before)
        table.put(slot, *state.before);
    else
        table.remove(slot);
}

SceneLibrary::SceneLibrary() : d(std::make_unique<Private>()) {}

SceneLibrary::~SceneLibrary() = default;

bool SceneLibrary::open(const QString &fileName, QString *error)
{
    close();
    const bool opened = Private::attempt(&d->whyClosed, [&] {
        d->file.open(fileName);
        d->table.changedElsewhere();
        d->scenes = d->table.list();
    });
    if (opened)
        return true;
    d->file.close();
    if (error)
        *error = d->whyClosed;
    return false;
}

void SceneLibrary::close()
{
    d->file.close();
    d->table.forgetLayouts();
    d->scenes.clear();
    d->undo.clear();
    d->whyClosed = QStringLiteral("There is no scene library.");
}

bool SceneLibrary::isOpen() const
{
    return d->file.isOpen();
}

QString SceneLibrary::fileName() const
{
    return d->file.name();
}

QString SceneLibrary::readOnlyReason() const
{
    return isOpen() ? d->file.readOnlyReason() : d->whyClosed;
}

bool SceneLibrary::limitSize(qint64 bytes, QString *error)
{
    return Private::attempt(error, [&] {
        d->requireOpen();
        d->file.limitSize(bytes);
    });
}

// Listing ------------------------------------------------------------------------------------

const SceneInfo &SceneLibrary::scene(int slot) const
{
    static const SceneInfo none;
    const auto found = d->scenes.find(slot);
    return found == d->scenes.end() ? none : found->second;
}

bool SceneLibrary::refresh()
{
    bool changed = false;
    Private::attempt(nullptr, [&] {
        if (!isOpen() || !d->table.changedElsewhere())
            return;
        d->scenes = d->table.list();
        // They are about what is no longer there.
        d->undo.clear();
        changed = true;
    });
    return changed;
}

// Scenes -------------------------------------------------------------------------------------

bool SceneLibrary::store(int slot, const ParameterSnapshot &snapshot, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        if (!snapshot.isWhole())
            refuse(QStringLiteral("There are no settings to store."));
        SceneInfo info = d->table.info(slot);
        requireChangeable(info, slot);
        d->noteContents(slot);
        if (!info.hasData)
            info.title = QStringLiteral("Scene %1").arg(slot, 3, 10, QLatin1Char('0'));
        info.stored = QDateTime::currentDateTimeUtc();
        d->table.put(slot, d->table.record(info, snapshot));
    });
}

std::optional<ParameterSnapshot> SceneLibrary::recall(int slot, QString *error)
{
    std::optional<ParameterSnapshot> snapshot;
    Private::attempt(error, [&] {
        d->requireOpen();
        requireSlot(slot);
        snapshot = d->table.snapshot(d->readWhole(slot));
    });
    return snapshot;
}

bool SceneLibrary::clear(int slot, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireChangeable(info, slot);
        d->noteContents(slot);
        d->table.remove(slot);
    });
}

bool SceneLibrary::rename(int slot, const QString &title, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireChangeable(info, slot);
        d->table.setTitle(slot, checkedTitle(title));
    });
}

bool SceneLibrary::setProtected(int slot, bool on, QString *error)
{
    return d->command(error, [&] {
        requireSlot(slot);
        const SceneInfo info = d->table.info(slot);
        requireData(info, slot);
        requireNotReadOnly(info, slot);
        d->noted[slot] = {UndoState::Protection, {}, info.isProtected};
        d->table.setProtected(slot, on);
    });
}

bool SceneLibrary::setReadOnly(int slot, bool on, QString *error)
{
    const bool done = d->command(error, [&] {
        requireSlot(slot);
        requireData(d->table.info(slot), slot);
        d->table.setReadOnly(slot, on);
    });
    if (done)
        forgetUndo(slot);
    return done;
}

// Places -------------------------------------------------------------------------------------

bool SceneLibrary::move(int first, int count, int target, QString *error)
{
    const int last = first + count - 1;
    const int lowest = std::min(first, target);
    const int highest = std::max(last, target + count - 1);
    const bool done = d->command(error, [&] {
        for (const int slot : {first, last, target, target + count - 1})
            requireSlot(slot);
        QHash<int, int> slotAfter;
        for (int slot = lowest; slot <= highest; ++slot) {
            requireNotReadOnly(d->table.info(slot), slot);
            const bool isMoved = slot >= first && slot <= last;
            const int aside = target < first ? count : -count;
            slotAfter[slot] = isMoved ? slot + target - first : slot + aside;
        }
        d->table.renumber(slotAfter);
    });
    if (done) {
        for (int slot = lowest; slot <= highest; ++slot)
            forgetUndo(slot);
    }
    return done;
}

bool SceneLibrary::copy(const QList<int> &from, int target, QString *error)
{
    return d->command(error, [&] {
        requireSlot(target);
        std::map<int, SceneRecord> copies;
        for (const int slot : from) {
            requireSlot(slot);
            const int to = target++;
            if (to > SlotCount || to == slot || !d->table.info(slot).hasData)
                continue;
            requireChangeable(d->table.info(to), to);
            SceneRecord record = d->readWhole(slot);
            record.info.isProtected = record.info.isReadOnly = false;
            copies.emplace(to, std::move(record));
        }
        // All are read by now: the slots may overlap.
        for (const auto &[to, record] : copies) {
            d->noteContents(to);
            d->table.put(to, record);
        }
    });
}

// Undo ---------------------------------------------------------------------------------------

bool SceneLibrary::canUndo(int slot) const
{
    return d->undo.find(slot) != d->undo.end();
}

bool SceneLibrary::undo(int slot, QString *error)
{
    const auto state = d->undo.find(slot);
    const bool done = d->command(error, [&] {
        if (state == d->undo.end())
            refuse(QStringLiteral("There is nothing to undo for scene %1.").arg(numberOf(slot)));
        d->takeBack(slot, state->second);
    });
    if (done)
        d->undo.erase(state);
    return done;
}

void SceneLibrary::forgetUndo(int slot)
{
    d->undo.erase(slot);
}
