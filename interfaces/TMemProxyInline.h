// SPDX-License-Identifier: MIT
#pragma once

// The longer bodies of TMemProxy and of what needs it whole. They stand in a header because the interfaces are headers alone.

#include "interfaces/MemHelpers.h"
#include "interfaces/ParamStream.h"
#include "interfaces/TMemProxy.h"

#include <QIODevice>
#include <QWidget>

inline bool TMemProxy::getInformation(TParamInfo &info) const
{
    if (!memAPIReady() || !m_attached)
        return false;
    const IMemAPI::TSingleBaseAddress at = valueAddress();
    info = {at.group, at.element, at.index,
            m_memAPI->readValue(at.group, at.index, at.element, 0, 0)};
    return true;
}

inline bool TMemProxy::setInformation(const TParamInfo &info)
{
    if (!memAPIReady() || !m_attached)
        return false;
    const TMemOriginHelper origin(m_memAPI, this);
    const IMemAPI::TSingleBaseAddress at = valueAddress();
    const int token = m_memAPI->undoToken(0, 1);
    return m_memAPI->writeValue(at.group, at.index, at.element, info.value, token) >= 0;
}

inline void TMemProxy::writeUndo(IUndoRecord &record, int key)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    copyParameters(out, static_cast<unsigned>(key));
    QDataStream in(bytes);
    const TParamInfoReader reader(&in);
    if (reader.isValid())
        record.add(key, reader.info());
}

inline bool TMemProxy::parameterRange(double &minimum, double &maximum, double &step) const
{
    const bool bound = memAPIReady() && m_attached;
    const IMemAPI::TSingleBaseAddress at = valueAddress();
    minimum = bound ? m_memAPI->readMinimum(at.group, at.index, at.element, 0) : 0;
    maximum = bound ? m_memAPI->readMaximum(at.group, at.index, at.element, 0) : 0;
    step = 1;
    return bound;
}

inline void TMemProxy::setWidgetShowState(QWidget *widget)
{
    const bool hide = !disableAutoHide() && !m_memAPI->parameterExists(group, index, element);
    if (hide == m_autoHidden)
        return;
    if (hide && widget->isHidden())
        return;
    m_autoHidden = hide;
    widget->setVisible(!hide);
}

inline void TMemProxy::resetTo(Operation operation, unsigned key)
{
    if (!memAPIReady())
        return;
    TParamInfo info{group, element, index, 0};
    info.value = m_memAPI->readDefault(group, index, element,
                                       operation == ResetToAlternativeDefault, nullptr);
    // An undo step of its own, whatever was done just before.
    m_memAPI->beginGesture(this);
    setInformation(info);
    m_memAPI->endGesture(this);
    process(nullptr, operation, key);
}

inline void TMemProxy::releaseFromMemory()
{
    if (!m_memAPI)
        return;
    TMemOriginHelper::forget(*m_memAPI, this);
    m_memAPI->releaseProxy(this);
    m_memAPI = nullptr;
}

inline TParamInfoWriter::TParamInfoWriter(TMemProxy &proxy, int value, QDataStream *stream,
                                          short index)
{
    if (!stream)
        return;
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    const qint16 own = index == -1 ? at.index : index;
    *stream << paramstream::Mark << at.group << at.element << own << static_cast<qint32>(value);
}
