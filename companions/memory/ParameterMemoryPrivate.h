// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/Binder.h"
#include "companions/memory/ChangeDelivery.h"
#include "companions/memory/ConsoleService.h"
#include "companions/memory/HeadAmpPatch.h"
#include "companions/memory/LiveDelivery.h"
#include "companions/memory/ParameterLayout.h"
#include "companions/memory/ParameterMemory.h"
#include "companions/memory/ParameterText.h"
#include "companions/memory/UndoHistory.h"

/// The parts of a memory.
struct ParameterMemory::Private final : UndoHistory::Parameters
{
    /// What there is once a model has been read; unchanged from then on, but for the values.
    struct Loaded
    {
        explicit Loaded(ConsoleModel &&source) : model(std::move(source)) {}

        const ConsoleModel model;
        const NameIndex names{model};
        ParameterStore store{model};
        const ParameterText text{model};
        const HeadAmpPatch headAmps{names, store};
        const std::shared_ptr<const ParameterLayout> layout =
            std::make_shared<ParameterLayout>(model);
    };

    class Preferences : public IPreferences
    {
    public:
        QVariant preference(int number) const override { return values.value(number); }

        QHash<int, QVariant> values;
    };

    const ParameterStore::Entry &entry(int group, int index) const
    {
        static constexpr ParameterStore::Entry none;
        const Loaded *present = ready.load(std::memory_order_acquire);
        return present ? present->store.entry(group, index) : none;
    }
    ValueCell *cell(int group, int index, int element) const
    {
        return entry(group, index).cell(element);
    }

    /// Stores a value that is within the bounds.
    void store(ValueCell &cell, int value)
    {
        cell.value.store(value, std::memory_order_release);
        delivery.changed(cell);
    }
    /// The same, with an entry in the history when it happens on the GUI thread.
    void storeWithUndo(const TParamInfo &info, ValueCell &cell, int undoToken);

    int read(const TParamInfo &address) const override;
    void write(const TParamInfo &info) override;
    QString label(const TParamInfo &address) const override;

    std::unique_ptr<Loaded> loaded;
    std::atomic<const Loaded *> ready{nullptr}; ///< the same, for all threads
    std::unique_ptr<Binder> binder;
    ChangeDelivery delivery;
    LiveDelivery live;
    ConsoleService service;
    UndoHistory history{*this};
    Preferences preferences;
    TSingleBaseAddress numberContext{-1, -1, -1};
};
