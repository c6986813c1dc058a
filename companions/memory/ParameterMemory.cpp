// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"

#include "companions/memory/ParameterMemoryPrivate.h"
#include "interfaces/TMemProxy.h"

#include <QThread>

#include <algorithm>

int ParameterMemory::Private::read(const TParamInfo &address) const
{
    const ValueCell *found = cell(address.group, address.index, address.element);
    return found ? found->value.load(std::memory_order_acquire) : 0;
}

void ParameterMemory::Private::write(const TParamInfo &info)
{
    if (ValueCell *found = cell(info.group, info.index, info.element))
        store(*found, info.value);
}

void ParameterMemory::Private::storeWithUndo(const TParamInfo &info, ValueCell &cell, int undoToken)
{
    if (QThread::currentThread() != delivery.thread()) {
        store(cell, info.value);
        return;
    }
    TParamInfo before = info;
    before.value = cell.value.exchange(info.value, std::memory_order_acq_rel);
    delivery.changed(cell);
    history.note(undoToken, before, info.value);
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
    Q_INIT_RESOURCE(console_memory); // in a static library nothing else does
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
    d->loaded = std::make_unique<Private::Loaded>(*std::move(model));
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
    return d->ready.load(std::memory_order_acquire);
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
    return lookUp(name, element, address) == Found;
}

IParameterNames::Outcome ParameterMemory::lookUp(const QString &name, int element,
                                                 TSingleBaseAddress &address) const
{
    if (!isReady())
        return UnknownName;
    const NameIndex::Result found = d->loaded->names.resolve(name, element);
    if (found.outcome == Found)
        address = found.address;
    return found.outcome;
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
    return d->label(
        {static_cast<qint16>(group), static_cast<qint16>(element), static_cast<qint16>(index), 0});
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
    if (undoToken == 0)
        d->store(*cell, value);
    else
        d->storeWithUndo({static_cast<qint16>(group), static_cast<qint16>(element),
                          static_cast<qint16>(index), value},
                         *cell, undoToken);
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
