// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"

#include "companions/memory/Binder.h"
#include "companions/memory/ChangeDelivery.h"
#include "companions/memory/ConsoleService.h"
#include "companions/memory/HeadAmpPatch.h"
#include "companions/memory/LiveDelivery.h"
#include "companions/memory/MethodText.h"
#include "companions/memory/ParameterText.h"
#include "companions/memory/SimpleNotifier.h"
#include "companions/memory/UndoHistory.h"

#include <QThread>

#include <algorithm>

namespace {

class Preferences : public IPreferences
{
public:
    QVariant preference(int number) const override { return values.value(number); }

    QHash<int, QVariant> values;
};

/// What there is once a model has been read; unchanged from then on, but for the values.
struct Loaded
{
    explicit Loaded(ConsoleModel &&source) : model(std::move(source)) {}

    const ConsoleModel model;
    const NameIndex names{model};
    ParameterStore store{model};
    const ParameterText text{model};
    const HeadAmpPatch headAmps{names, store};
};

} // namespace

struct ParameterMemory::Private final : UndoHistory::Parameters
{
    const ParameterStore *store() const
    {
        const Loaded *present = ready.load(std::memory_order_acquire);
        return present ? &present->store : nullptr;
    }
    const ParameterStore::Entry &entry(int group, int index) const
    {
        static const ParameterStore::Entry none;
        const ParameterStore *present = store();
        return present ? present->entry(group, index) : none;
    }
    ValueCell *cell(int group, int index, int element) const
    {
        return entry(group, index).cell(element);
    }

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

int ParameterMemory::Private::read(const TParamInfo &address) const
{
    const ValueCell *found = cell(address.group, address.index, address.element);
    return found ? found->value.load(std::memory_order_acquire) : 0;
}

void ParameterMemory::Private::write(const TParamInfo &info)
{
    if (ValueCell *found = cell(info.group, info.index, info.element)) {
        found->value.store(info.value, std::memory_order_release);
        delivery.changed(*found);
    }
}

QString ParameterMemory::Private::label(const TParamInfo &address) const
{
    const auto *parameter = entry(address.group, address.index).parameter;
    return parameter ? loaded->model.labelOf(*parameter, address.element) : QString();
}

ParameterMemory::ParameterMemory(QObject *parent) : QObject(parent), d(std::make_unique<Private>())
{
    connect(&d->service, &ConsoleService::onlineChanged, this, &ParameterMemory::onlineChanged);
    connect(&d->service, &ConsoleService::frequentServiceEvent, this,
            &ParameterMemory::frequentServiceEvent);
}

ParameterMemory::~ParameterMemory()
{
    while (TMemProxyBasic *proxy = d->delivery.anyProxy()) {
        releaseProxy(proxy);
        if (auto *bound = dynamic_cast<TMemProxy *>(proxy)) {
            bound->setAttached(false);
            bound->setMemAPI(nullptr);
        }
    }
}

QString ParameterMemory::builtInModel()
{
    return QStringLiteral(":/consolewidgets/console.json");
}

bool ParameterMemory::load(const QString &fileName, QString *error)
{
    if (d->loaded) {
        if (error)
            *error = fileName + QLatin1String(": this memory has its console model already");
        return false;
    }
    std::optional<ConsoleModel> model = ConsoleModel::read(fileName, error);
    if (!model)
        return false;
    d->loaded = std::make_unique<Loaded>(*std::move(model));
    d->delivery.setStore(&d->loaded->store);
    d->binder = std::make_unique<Binder>(*this, d->loaded->names, d->delivery);
    d->preferences.values = d->loaded->model.preferences();
    d->ready.store(d->loaded.get(), std::memory_order_release);
    return true;
}

const ConsoleModel &ParameterMemory::model() const
{
    static const ConsoleModel none;
    return d->loaded ? d->loaded->model : none;
}

bool ParameterMemory::isReady() const
{
    return d->store();
}

// Binding ------------------------------------------------------------------------------------

int ParameterMemory::bind(QWidget *root, int element, int elementOffset)
{
    return isReady() ? d->binder->bindTree(root, element, elementOffset) : 0;
}

bool ParameterMemory::bindProxy(TMemProxy *proxy, int element, int elementOffset)
{
    return isReady() && proxy && d->binder->bind(*proxy, element, elementOffset);
}

void ParameterMemory::namedAddressChanged(TMemProxy *proxy)
{
    if (isReady())
        d->binder->rebind(*proxy);
}

void ParameterMemory::selectAltAddress(TMemProxy *proxy, int element)
{
    if (isReady())
        d->binder->rebind(*proxy, element - proxy->elementOffset());
}

void ParameterMemory::attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int)
{
    const auto [group, index, element] = unpackedAddress(packedAddress);
    if (ValueCell *cell = d->cell(group, index, element))
        d->delivery.attach(d->delivery.recordOf(*proxy), *cell);
}

void ParameterMemory::detachProxy(TMemProxyBasic *proxy, quint32 packedAddress)
{
    const auto [group, index, element] = unpackedAddress(packedAddress);
    ValueCell *cell = d->cell(group, index, element);
    ProxyRecord *record = ChangeDelivery::findRecord(*proxy);
    if (cell && record)
        d->delivery.detach(*record, *cell);
}

void ParameterMemory::releaseProxy(TMemProxyBasic *proxy)
{
    d->history.forget(proxy);
    ProxyRecord *record = ChangeDelivery::findRecord(*proxy);
    if (!record)
        return;
    if (record->deliveredLive)
        d->live.forget(proxy);
    d->delivery.release(*record);
}

void ParameterMemory::postObserverEvent(TMemProxyBasic *proxy)
{
    if (ProxyRecord *record = ChangeDelivery::findRecord(*proxy))
        d->delivery.post(*record);
}

void ParameterMemory::alert(int group, int index, int element)
{
    if (group < 0)
        d->delivery.postAll();
    else if (ValueCell *cell = d->cell(group, index, element))
        d->delivery.changed(*cell);
}

// Names --------------------------------------------------------------------------------------

bool ParameterMemory::resolve(const QString &name, int element, TSingleBaseAddress &address) const
{
    if (!isReady())
        return false;
    const NameIndex::Result found = d->loaded->names.resolve(name, element);
    if (found.outcome != NameIndex::Found)
        return false;
    address = found.address;
    return true;
}

QString ParameterMemory::nearestName(const QString &name) const
{
    return isReady() ? d->loaded->names.nearest(name) : QString();
}

QString ParameterMemory::nameOf(int group, int index) const
{
    return isReady() ? d->loaded->names.nameOf(group, index) : QString();
}

QString ParameterMemory::labelOf(int group, int index, int element) const
{
    return d->label({static_cast<qint16>(group), static_cast<qint16>(element),
                     static_cast<qint16>(index), 0});
}

// Values -------------------------------------------------------------------------------------

bool ParameterMemory::parameterExists(int group, int index, int element) const
{
    return d->entry(group, index).has(element);
}

int ParameterMemory::readMinimum(int group, int index, int element, int) const
{
    const ParameterStore::Entry &entry = d->entry(group, index);
    return entry.has(element) ? entry.minimum : 0;
}

int ParameterMemory::readMaximum(int group, int index, int element, int) const
{
    const ParameterStore::Entry &entry = d->entry(group, index);
    return entry.has(element) ? entry.maximum : 0;
}

int ParameterMemory::readValue(int group, int index, int element, int, int) const
{
    const ValueCell *cell = d->cell(group, index, element);
    return cell ? cell->value.load(std::memory_order_acquire) : 0;
}

int ParameterMemory::readDefault(int group, int index, int element, bool alternative,
                                 int *unavailable) const
{
    const ParameterStore::Entry &entry = d->entry(group, index);
    const bool hasAlternative = entry.has(element) && entry.parameter->altDefault;
    if (unavailable)
        *unavailable = hasAlternative ? 0 : 1;
    if (alternative && hasAlternative)
        return *entry.parameter->altDefault;
    return entry.has(element) ? entry.parameter->defaultOf(element) : 0;
}

int ParameterMemory::writeValue(int group, int index, int element, int value, int undoToken)
{
    const ParameterStore::Entry &entry = d->entry(group, index);
    ValueCell *cell = entry.cell(element);
    if (!cell)
        return Failed;
    value = std::clamp(value, entry.minimum, entry.maximum);
    if (undoToken != 0 && QThread::currentThread() == thread()) {
        const TParamInfo before{static_cast<qint16>(group), static_cast<qint16>(element),
                                static_cast<qint16>(index), cell->value.exchange(value)};
        d->delivery.changed(*cell);
        d->history.note(undoToken, before, value);
        return Ok;
    }
    cell->value.store(value, std::memory_order_release);
    d->delivery.changed(*cell);
    return Ok;
}

bool ParameterMemory::applyParamInfo(int group, int index, TParamInfo &info, int)
{
    if (info.group != group || info.index != index || !parameterExists(group, index, info.element))
        return false;
    if (writeValue(group, index, info.element, info.value, undoToken(0, 1)) < 0)
        return false;
    info.value = readValue(group, index, info.element, 0, 0);
    return true;
}

int ParameterMemory::stepValue(const TMemProxy *proxy, int value, Step step) const
{
    const auto *parameter = d->entry(proxy->group, proxy->index).parameter;
    return parameter ? ParameterText::step(*parameter, value, step) : value;
}

// Text ---------------------------------------------------------------------------------------

void ParameterMemory::valueText(int, int tableId, QString &text, QPixmap &, int value,
                                bool onOffFive, int group, int index) const
{
    text = isReady() ? d->loaded->text.text(d->entry(group, index).parameter, tableId, value,
                                            onOffFive)
                     : QString::number(value);
}

void ParameterMemory::setNumberContext(const TMemProxy *proxy)
{
    d->numberContext = proxy ? static_cast<const TSingleBaseAddress &>(*proxy)
                             : TSingleBaseAddress{-1, -1, -1};
}

int ParameterMemory::numberToValue(float number, int tableId) const
{
    const auto *parameter = d->entry(d->numberContext.group, d->numberContext.index).parameter;
    return isReady() ? d->loaded->text.value(parameter, tableId, number) : 0;
}

// Undo ---------------------------------------------------------------------------------------

QUndoStack *ParameterMemory::undoStack() const
{
    return d->history.stack();
}

int ParameterMemory::undoToken(int, int)
{
    if (QThread::currentThread() != thread())
        return 0;
    const TMemProxy *origin = writeOrigin();
    if (origin && (!origin->isUndoEnable() || origin->autoUndoDisabled()))
        return 0;
    return d->history.token(origin);
}

void ParameterMemory::beginGesture(TMemProxyBasic *proxy)
{
    d->history.beginGesture(proxy);
}

void ParameterMemory::endGesture(TMemProxyBasic *proxy)
{
    d->history.endGesture(proxy);
}

std::unique_ptr<IUndoRecord> ParameterMemory::openUndoRecord(const QString &text)
{
    return UndoHistory::openRecord(text);
}

void ParameterMemory::commitUndoRecord(std::unique_ptr<IUndoRecord> record)
{
    d->history.commit(std::move(record));
}

// Console ------------------------------------------------------------------------------------

QObject *ParameterMemory::blinkClock(bool *lit, int)
{
    if (lit)
        *lit = d->service.isLit();
    return d->service.blinkClock();
}

void ParameterMemory::stepBlinkClock(bool lit)
{
    d->service.stepBlinkClock(lit);
}

bool ParameterMemory::connectApiSignal(bool on, const char *signal, QObject *receiver,
                                       const char *slot)
{
    if (!signal || !receiver || !slot)
        return false;
    const QMetaMethod source = methodFromText(*this, signal);
    const QMetaMethod target = methodFromText(*receiver, slot);
    const bool isOurs = source == QMetaMethod::fromSignal(&ParameterMemory::onlineChanged)
        || source == QMetaMethod::fromSignal(&ParameterMemory::frequentServiceEvent);
    if (!isOurs || !target.isValid() || !QMetaObject::checkConnectArgs(source, target))
        return false;
    // One connection however often a control attaches without having detached.
    if (on)
        connect(this, source, receiver, target, Qt::UniqueConnection);
    else
        disconnect(this, source, receiver, target);
    return true;
}

void ParameterMemory::setMeterWatch(bool on, TMemProxyBasic *proxy, int group, int index,
                                    int element)
{
    const auto address = packedAddress(static_cast<qint16>(group), static_cast<qint16>(index),
                                       static_cast<qint16>(element));
    if (!on) {
        d->live.unwatch(proxy, address);
        return;
    }
    d->delivery.recordOf(*proxy).deliveredLive = true;
    d->live.watch(proxy, address);
}

void ParameterMemory::deliverMeter(int group, int index, int element, int level, int peak)
{
    d->live.deliverMeter(packedAddress(static_cast<qint16>(group), static_cast<qint16>(index),
                                       static_cast<qint16>(element)),
                         level, peak);
}

const quint16 *ParameterMemory::meterTableById(int tableId, int *count, int) const
{
    const std::vector<quint16> *table = model().meterTable(tableId);
    if (count)
        *count = table ? static_cast<int>(table->size()) : 0;
    return table ? table->data() : nullptr;
}

void ParameterMemory::requestTimecode(int, TMemProxyBasic *proxy)
{
    d->delivery.recordOf(*proxy).deliveredLive = true;
    d->live.requestTimecode(proxy);
}

void ParameterMemory::deliverTimecode(int hours, int minutes, int seconds, int frames)
{
    d->live.deliverTimecode(hours, minutes, seconds, frames);
}

bool ParameterMemory::timecodeWanted() const
{
    return d->live.timecodeWanted();
}

int ParameterMemory::connectionState() const
{
    return d->service.connectionState();
}

void ParameterMemory::setConnectionState(int bits)
{
    d->service.setConnectionState(bits);
}

void ParameterMemory::tickService()
{
    d->service.tick();
}

IPreferences *ParameterMemory::preferences()
{
    return &d->preferences;
}

void ParameterMemory::setPreference(int number, const QVariant &value)
{
    d->preferences.values.insert(number, value);
}

// Further addresses --------------------------------------------------------------------------

CSimpleNotifier *ParameterMemory::createNotifier(QObject *receiver, const QString &names,
                                                 int selector, const char *slot,
                                                 CSimpleNotifier *reuse, void *)
{
    if (!isReady())
        return nullptr;
    const NameIndex::Result found = d->loaded->names.resolve(names, selector);
    if (found.outcome == NameIndex::UnknownName)
        d->binder->warnUnknown(found.culprit);
    if (found.outcome != NameIndex::Found)
        return nullptr;
    auto *notifier = reuse ? qobject_cast<SimpleNotifier *>(reuse)
                           : SimpleNotifier::create(receiver, slot);
    if (!notifier)
        return nullptr;
    notifier->pointAt(names);
    d->binder->bind(*notifier->valueHolder(), selector, 0);
    return notifier;
}

CSimpleNotifier *ParameterMemory::createNotifier(QObject *receiver, const TSingleAddress *address,
                                                 int selector, const char *slot,
                                                 CSimpleNotifier *reuse, void *)
{
    if (!address || !parameterExists(address->group, address->index, address->element + selector))
        return nullptr;
    auto *notifier = reuse ? qobject_cast<SimpleNotifier *>(reuse)
                           : SimpleNotifier::create(receiver, slot);
    if (!notifier)
        return nullptr;
    TSingleBaseAddress selected = *address;
    selected.element = static_cast<qint16>(selected.element + selector);
    notifier->pointAt({});
    d->binder->bindTo(*notifier->valueHolder(), selected);
    return notifier;
}

int ParameterMemory::resolveXtraInfo(TXtraInfo &info) const
{
    return HeadAmpPatch::parse(info) ? Ok : Failed;
}

bool ParameterMemory::resolvePhantomAddress(const TMemProxy *proxy, int baseElement, int baseIndex,
                                            TSingleBaseAddress &address) const
{
    if (!isReady())
        return false;
    const auto found = d->loaded->headAmps.phantomAddress(proxy->element, baseElement, baseIndex);
    if (found)
        address = *found;
    return found.has_value();
}
