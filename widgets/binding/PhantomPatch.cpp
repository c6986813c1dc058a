// SPDX-License-Identifier: MIT
#include "widgets/binding/PhantomPatch.h"

#include "interfaces/CSimpleNotifier.h"
#include "widgets/binding/Binding.h"

namespace {

constexpr int HeadAmpUnits = 16;
constexpr IMemAPI::TSingleBaseAddress Nowhere{-1, -1, -1};

const QString patchName = QStringLiteral("FEkPatchInInput/kPatchIn");
const QString hostName = QStringLiteral("00kHX612Host/kHX612HostID");

QString portName(int unit)
{
    return QString::asprintf("%02X", static_cast<unsigned>(unit))
           + QLatin1String("kSetupHX612/kHX612Port");
}

} // namespace

void PhantomPatch::setXtraInfo(const QString &text)
{
    if (text != m_info.text)
        m_info = {text, -1, -1};
}

void PhantomPatch::attach(TMemProxy &proxy, QObject &receiver)
{
    IMemAPI &memory = *proxy.memAPI();
    if (!m_patchNotifier)
        subscribe(proxy, receiver);
    workOutBases(memory);
    m_address = Nowhere;
    m_attached = memory.resolvePhantomAddress(&proxy, baseElement(), baseIndex(), m_address);
    if (m_attached)
        memory.attachProxy(&proxy,
                           packedAddress(m_address.group, m_address.index, m_address.element), 0);
}

void PhantomPatch::subscribe(TMemProxy &proxy, QObject &receiver)
{
    const auto create = [&](const QString &name, int element) {
        return CSimpleNotifier::Create(*proxy.memAPI(), &receiver, name, element,
                                       SLOT(handle_patchInChange(int)), nullptr, nullptr);
    };
    qDeleteAll(std::exchange(m_otherNotifiers, {}));
    for (int unit = 0; unit < HeadAmpUnits; ++unit)
        m_otherNotifiers.append(create(portName(unit), unit));
    m_otherNotifiers.append(create(hostName, 0));
    m_patchNotifier = create(patchName, proxy.element);
}

void PhantomPatch::workOutBases(const IMemAPI &memory)
{
    if (m_info.baseElement != -1)
        return;
    IMemAPI::TXtraInfo info{m_info.text, -1, -1};
    if (memory.resolveXtraInfo(info) == IMemAPI::Ok)
        m_info = info;
}

void PhantomPatch::detach(TMemProxy &proxy)
{
    if (m_attached && binding::ready(proxy))
        proxy.memAPI()->detachProxy(
            &proxy, packedAddress(m_address.group, m_address.index, m_address.element));
    m_attached = false;
    proxy.setAttached(false);
    if (!m_patchNotifier)
        return;
    qDeleteAll(std::exchange(m_otherNotifiers, {}));
    delete m_patchNotifier;
}

void PhantomPatch::reattach(TMemProxy &proxy)
{
    if (!m_patchNotifier)
        return;
    // Deliberate: without its mark the detaching leaves the subscriptions alive, and with the mark
    // back in place the attaching does not make them a second time.
    const QPointer<CSimpleNotifier> kept = std::exchange(m_patchNotifier, {});
    proxy.disconnectMemAPI();
    m_patchNotifier = kept;
    proxy.setAttached(true);
    proxy.connectMemAPI();
}
