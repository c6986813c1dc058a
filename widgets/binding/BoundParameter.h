// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"

/// BOUND_PROPERTIES without setDisableAutoHide(), for controls that keep that option elsewhere.
#define BOUND_BASE_PROPERTIES                                                                      \
    /** Which parameter: "[UU]block/parameter", UU a fixed unit in hexadecimal. Empty: none. */    \
    Q_PROPERTY(QString namedAddress READ namedAddress WRITE setNamedAddress)                       \
    /** The memory's table that makes the display text; 0: the parameter's own. */                 \
    Q_PROPERTY(int tableId READ tableId WRITE setTableId)                                          \
    /** The default that a reset stores: 0 the default, 1 the alternative one. */                  \
    Q_PROPERTY(int numDefaultKind READ numDefaultKind WRITE setNumDefaultKind)                     \
    /** Whether edits can be undone. */                                                            \
    Q_PROPERTY(bool undoEnable READ isUndoEnable WRITE setUndoEnable)                              \
    /** Stays visible when the console has no such parameter. Off: hides until it has. */          \
    Q_PROPERTY(bool disableAutoHide READ disableAutoHide WRITE setDisableAutoHide)                 \
public:                                                                                            \
    Q_SLOT void setNamedAddress(const QString &name) override                                      \
    {                                                                                              \
        TMemProxy::setNamedAddress(name);                                                          \
    }                                                                                              \
    Q_SLOT void setTableId(int id) override                                                        \
    {                                                                                              \
        TMemProxy::setTableId(id);                                                                 \
    }                                                                                              \
    Q_SLOT void setNumDefaultKind(int kind) override                                               \
    {                                                                                              \
        TMemProxy::setNumDefaultKind(kind);                                                        \
    }                                                                                              \
    Q_SLOT void setUndoEnable(bool enable) override                                                \
    {                                                                                              \
        TMemProxy::setUndoEnable(enable);                                                          \
    }                                                                                              \
                                                                                                   \
private:

/// The properties that every bound control publishes, with their setters as slots. Stands in the class
/// right after Q_OBJECT; the meaning of each is told at TMemProxy.
#define BOUND_PROPERTIES                                                                           \
    BOUND_BASE_PROPERTIES                                                                          \
public:                                                                                            \
    Q_SLOT void setDisableAutoHide(bool disable) override                                          \
    {                                                                                              \
        TMemProxy::setDisableAutoHide(disable);                                                    \
    }                                                                                              \
                                                                                                   \
private:

/// The signals that tell a control's value: as stored in the memory, as display text or picture, and
/// whether the control stands at its minimum (which in alternative-address mode means off).
#define BOUND_SIGNALS                                                                              \
public:                                                                                            \
    /** The value as it is stored in the memory. */                                                \
    Q_SIGNAL void memoryAPIValueChange(int value);                                                 \
    /** The value as display text, with its unit: "-12.0 dB". */                                   \
    Q_SIGNAL void textualValueChange(const QString &text);                                         \
    /** The picture for the value, of parameters whose values have pictures. */                    \
    Q_SIGNAL void pixmapValueChange(const QPixmap &picture);                                       \
    /** Whether the value is the least, which in alternative-address mode means off. */            \
    Q_SIGNAL void altAddressMode(bool atMinimum);                                                  \
                                                                                                   \
private:

/// What every bound control publishes.
#define BOUND_PARAMETER                                                                            \
    BOUND_PROPERTIES                                                                               \
    BOUND_SIGNALS
