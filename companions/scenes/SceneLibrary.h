// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterSnapshot.h"
#include "companions/scenes/SceneInfo.h"

#include <memory>

/// A library of scenes in a file: numbered slots, each of which can hold the values of all parameters.
///
/// A command that returns true has its result safe on the disk; one that returns false has changed
/// nothing, and says in `error` why, in one line for the operator. It can be tried again. The library
/// goes on after every failure: what can be read stays listed. Slots count from 1; others are
/// refused. GUI thread, with an application object.
class SceneLibrary
{
public:
    static constexpr int SlotCount = 300;
    static constexpr int MaximumTitleLength = 32;

    /// A scene by itself: unprotected.
    struct Scene
    {
        QString title;
        QDateTime stored; ///< UTC
        ParameterSnapshot snapshot;
    };

    SceneLibrary();
    ~SceneLibrary();

    /// Opens a library, or makes one where there is no file. Undo states of the one before are
    /// forgotten. A library that cannot be written is opened for reading: see readOnlyReason().
    bool open(const QString &fileName, QString *error = nullptr);
    void close();
    bool isOpen() const;
    QString fileName() const;
    /// Why nothing can be stored; empty when it can.
    QString readOnlyReason() const;
    /// The file does not grow beyond that many bytes; 0: as far as the disk allows.
    bool limitSize(qint64 bytes, QString *error = nullptr);

    /// What is in a slot.
    const SceneInfo &scene(int slot) const;
    /// Looks whether another program has changed the file. True when anything is different now.
    bool refresh();

    /// Stores under the slot's title; an empty slot is called after its number.
    bool store(int slot, const ParameterSnapshot &snapshot, QString *error = nullptr);
    /// Nothing when the slot is empty or its scene is damaged.
    std::optional<ParameterSnapshot> recall(int slot, QString *error = nullptr);
    bool clear(int slot, QString *error = nullptr);
    /// A scene, to be put into another slot, here or in another library.
    std::optional<Scene> read(int slot, QString *error = nullptr);
    bool put(int slot, const Scene &scene, QString *error = nullptr);
    /// Superfluous space is taken out of the title.
    bool rename(int slot, const QString &title, QString *error = nullptr);
    /// Keeps a scene from being stored over, cleared and renamed.
    bool setProtected(int slot, bool on, QString *error = nullptr);
    /// Keeps a scene, and its slot, as they are, for scenes that come with a console.
    bool setReadOnly(int slot, bool on, QString *error = nullptr);

    /// Takes `count` slots from `first` on out of their places and puts them in so that they begin
    /// at `target`; those between move up. Protected scenes move as well, read-only ones do not.
    bool move(int first, int count, int target, QString *error = nullptr);
    /// Whether the slot's last store, clear, rename or change of protection, or a move that it took
    /// part in, can be undone. Undo states are not kept in the file.
    bool canUndo(int slot) const;
    /// Undoing a move brings all scenes back that have moved since the last other command.
    bool undo(int slot, QString *error = nullptr);
    void forgetUndo(int slot);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
