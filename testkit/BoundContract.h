// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QWidget;

/// What holds for every bound control, on any memory, as a Qt Test: which properties, slots and
/// signals it has, that it is inert without a memory, how it attaches and leaves, that a change in the
/// memory comes through and nothing is written back, which operations it takes, what becomes of signals
/// that are blocked and of a control that dies in one, what it may do on other threads, and that it can
/// be reached by keyboard and speaks to assistive tools.
///
/// \code
/// BoundContract contract;
/// contract.add<Fader>();
/// contract.except("Fader", BoundContract::NoFocus);
/// return QTest::qExec(&contract, argc, argv);
/// \endcode
class BoundContract : public QObject
{
    Q_OBJECT

public:
    /// Makes a control without a parent, and without an address. It is a TMemProxy.
    using MakeControl = std::function<QWidget *()>;
    /// Makes an empty memory, ready to be used.
    using MakeMemory = std::function<std::unique_ptr<IMemAPI>()>;

    /// What a control does otherwise, by design. An exception that does not hold fails, too.
    enum Exception {
        /// Has none of the signals of a value.
        NoValueSignals = 1 << 0,
        /// Reads its value when the memory delivers it first, not while it attaches.
        ReadsLater = 1 << 1,
        /// Attaches elsewhere than at its own address, or takes readings instead.
        AttachesElsewhere = 1 << 2,
        /// Asks for the GUI thread only when something is new.
        AsksWhenNew = 1 << 3,
        /// A display, which Tab passes by.
        NoFocus = 1 << 4,
        /// Is named by itself, not by its address.
        OwnName = 1 << 5,
        /// A display, which takes no part in copying and resetting, nor edits.
        NoCopy = 1 << 6,
        /// Does not make up for value signals that fall while its signals are blocked.
        ForgetsBlocked = 1 << 7,
    };
    Q_DECLARE_FLAGS(Exceptions, Exception)

    BoundContract(); ///< Tries nothing until controls are added.
    ~BoundContract() override;

    /// Tries a class under its own name.
    template<class Control>
    void add()
    {
        add(Control::staticMetaObject.className(), [] { return new Control; });
    }
    /// Tries a control under a name, which names the rows of the test.
    void add(const char *className, const MakeControl &make);
    /// What the control of that name does otherwise, and why.
    void except(const char *className, Exceptions exceptions);

    /// Tries the controls on that memory, too, at a parameter that is there and has at least two
    /// values. Without any the contract uses a RecordingMemory.
    void addMemory(const char *name, const IMemAPI::TSingleBaseAddress &at, const MakeMemory &make);

private Q_SLOTS:
    void initTestCase();
    void publishesTheBindingProperties_data() { everyControl(); }
    void publishesTheBindingProperties();
    void declaresTheSlotsAndSignals_data() { everyControl(); }
    void declaresTheSlotsAndSignals();
    void isInertWithoutAMemory_data() { everyControl(); }
    void isInertWithoutAMemory();
    void isInertWhileItsMemoryIsNotReady_data() { everyControl(AttachesElsewhere); }
    void isInertWhileItsMemoryIsNotReady();
    void hidesWhileItsParameterIsMissing_data()
    {
        everyControl(Exceptions(NoValueSignals) | AttachesElsewhere);
    }
    void hidesWhileItsParameterIsMissing();
    void attachesOnceAndWritesNothing_data() { everyControlOnEveryMemory(); }
    void attachesOnceAndWritesNothing();
    void followsTheMemoryAndWritesNothingBack_data() { everyControlOnEveryMemory(); }
    void followsTheMemoryAndWritesNothingBack();
    void resetsAndCopiesItsParameter_data()
    {
        everyControlOnEveryMemory(Exceptions(NoValueSignals) | AttachesElsewhere | NoCopy);
    }
    void resetsAndCopiesItsParameter();
    void takesOperations_data()
    {
        everyControl(Exceptions(NoValueSignals) | AttachesElsewhere | NoCopy);
    }
    void takesOperations();
    void isNotEdited_data() { everyControl({}, NoCopy); }
    void isNotEdited();
    void tellsOnceWhatWasBlocked_data()
    {
        everyControl(Exceptions(NoValueSignals) | AttachesElsewhere);
    }
    void tellsOnceWhatWasBlocked();
    void mayDieInItsOwnSignal_data()
    {
        everyControl(Exceptions(NoValueSignals) | AttachesElsewhere);
    }
    void mayDieInItsOwnSignal();
    void otherThreadsTouchNothing_data() { everyControlOnEveryMemory(); }
    void otherThreadsTouchNothing();
    void leavesTheMemoryWhole_data() { everyControlOnEveryMemory(); }
    void leavesTheMemoryWhole();
    void outlivesTheMemory_data() { everyControlOnEveryMemory(AttachesElsewhere); }
    void outlivesTheMemory();
    void canBeReachedAndSpeaks_data() { everyControlOnEveryMemory(); }
    void canBeReachedAndSpeaks();

private:
    struct Control;
    struct Memory;
    struct Bound;
    struct Recorded;

    void everyControl(Exceptions without = {}, Exceptions with = {}) const;
    void everyControlOnEveryMemory(Exceptions without = {}) const;
    void rows(int memories, Exceptions without, Exceptions with = {}) const;

    std::vector<Control> m_controls;
    std::vector<Memory> m_memories;
    QHash<QByteArray, Exceptions> m_exceptions;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(BoundContract::Exceptions)
