// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <QObject>

#include <functional>
#include <memory>

/// What controls rely on in a memory, as a Qt Test: how values are held, and how and when changes are
/// delivered. For a memory that delivers by the event loop of the GUI thread.
///
/// \code
/// MemoryContract contract({0, 3, 1}, [] { return std::make_unique<MyMemory>(); });
/// return QTest::qExec(&contract, argc, argv);
/// \endcode
class MemoryContract : public QObject
{
    Q_OBJECT

public:
    /// Makes a memory that is ready, with its values at their defaults.
    using MakeMemory = std::function<std::unique_ptr<IMemAPI>()>;

    /// `at` is a parameter of the memory with at least two values, that nobody else changes.
    MemoryContract(const IMemAPI::TSingleBaseAddress &at, const MakeMemory &make);
    ~MemoryContract() override;

private Q_SLOTS:
    void valuesAreHeldInsideTheirBounds_data();
    void valuesAreHeldInsideTheirBounds();
    void whatDoesNotExistIsZeroAndCannotBeWritten_data();
    void whatDoesNotExistIsZeroAndCannotBeWritten();
    void defaultsAreValues();
    void aCopyFitsItsOwnParameterOnly();
    void whoAttachesHearsOfItSoon();
    void manyChangesAreOneCallOnTheGuiThread();
    void everyProxyOnTheParameterHears();
    void requestsOfOtherThreadsAreOneCall();
    void whoHasLeftHearsNothing_data();
    void whoHasLeftHearsNothing();
    void aProxyMayDieInACall_data();
    void aProxyMayDieInACall();
    void diesBeforeItsProxies();

private:
    struct Rig;
    class Probe;

    IMemAPI::TSingleBaseAddress m_at;
    MakeMemory m_make;
};
