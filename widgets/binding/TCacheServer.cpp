// SPDX-License-Identifier: MIT
#include "widgets/binding/TCacheServer.h"

#include <QWidget>

#include <typeinfo>

namespace {
/// How many servers there are: without any, nobody needs to search his ancestors.
int livingServers = 0;
} // namespace

TCacheServer::TCacheServer(const QString &caption) : m_caption(caption)
{
    ++livingServers;
}

TCacheServer::~TCacheServer()
{
    --livingServers;
}

std::shared_ptr<TCachedData> TCacheServer::share(std::shared_ptr<TCachedData> own)
{
    if (own->cacheName().isEmpty())
        return own;
    const TCachedData &record = *own;
    const QString key = QLatin1String(typeid(record).name()) + u'/' + own->cacheName();
    std::shared_ptr<TCachedData> shared = m_shared.value(key).lock();
    if (!shared) {
        shared = std::move(own);
        m_shared.insert(key, shared);
    }
    ++shared->m_shareCount;
    return shared;
}

void TCacheServer::release(const std::shared_ptr<TCachedData> &data)
{
    if (data && data->m_shareCount > 0)
        --data->m_shareCount;
}

TCacheServer *TCacheServer::nearest(const QWidget *widget)
{
    if (livingServers == 0)
        return nullptr;
    for (QWidget *ancestor = widget->parentWidget(); ancestor;
         ancestor = ancestor->parentWidget()) {
        if (auto *server = dynamic_cast<TCacheServer *>(ancestor))
            return server;
    }
    return nullptr;
}

QString TCacheServer::scopeOf(const QWidget *widget)
{
    const TCacheServer *server = nearest(widget);
    return server ? server->caption() : QString();
}
