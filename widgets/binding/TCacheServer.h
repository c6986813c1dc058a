// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QHash>
#include <QString>

#include <memory>

class QWidget;

/// Per-look data that several controls can share (cut images, look options), derived from by each
/// class's own `_PD` record.
class CONSOLEWIDGETS_EXPORT TCachedData
{
public:
    virtual ~TCachedData() = default;

    /// How many controls use the data through a cache; 0 while it belongs to one control alone.
    int shareCount() const { return m_shareCount; }

    /// The name under which the data is shared; empty: not shared.
    const QString &cacheName() const { return m_cacheName; }
    void setCacheName(const QString &name) { m_cacheName = name; }

private:
    friend class TCacheServer;
    int m_shareCount = 0;
    QString m_cacheName;
};

/// A container widget that also derives from this scopes what the image controls inside it share:
/// rendered pixmaps in Qt's pixmap cache, whose keys start with the caption, and cached data.
/// GUI thread.
class CONSOLEWIDGETS_EXPORT TCacheServer
{
public:
    /// `caption`: see caption().
    explicit TCacheServer(const QString &caption = {});
    virtual ~TCacheServer();
    Q_DISABLE_COPY_MOVE(TCacheServer)

    /// The scope; while it is empty no pixmap is shared.
    const QString &caption() const { return m_caption; }
    void setCaption(const QString &caption) { m_caption = caption; }

    /// The data shared under the name of `own`: `own` itself for the first control of a name, the
    /// first one's data for the others (theirs is dropped). The type is part of the name.
    std::shared_ptr<TCachedData> share(std::shared_ptr<TCachedData> own);
    /// A control gives up its use of shared data.
    static void release(const std::shared_ptr<TCachedData> &data);

    /// The nearest ancestor of `widget` that is a cache server, its parent first; null when there is
    /// none.
    static TCacheServer *nearest(const QWidget *widget);
    /// The caption of that ancestor; empty when there is none.
    static QString scopeOf(const QWidget *widget);

private:
    QString m_caption;
    QHash<QString, std::weak_ptr<TCachedData>> m_shared;
};
