#include "resources/ResourceImageProvider.h"

#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/ResourceManager.h"

#include <QDebug>
#include <QImage>
#include <QUrl>

namespace Hmi::Core {

ResourceImageProvider::ResourceImageProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

ResourceImageProvider::~ResourceImageProvider() = default;

QImage ResourceImageProvider::requestImage(const QString& aId, QSize* aSize, const QSize& aRequestedSize)
{
    // QML appends "?..." to force a reload after a theme switch; the name ends before it.
    const QString name = aId.section(QLatin1Char('?'), 0, 0);
    const ResourceManager& resources = ResourceManager::getInstance();
    QSharedPointer<const NodeImage> node = resources.get<NodeImage>(name);
    if (!node) {
        node = resources.get<NodeRectangle>(name);
    }
    if (!node || node->getSource().isEmpty()) {
        qWarning("WARNING: resourceImageProvider has no image named %s", qUtf8Printable(name));
        return {};
    }
    QImage image(NodeImage::toFilePath(node->getSource()));
    if (image.isNull()) {
        qWarning("WARNING: resourceImageProvider could not read %s", qUtf8Printable(node->getSource().toString()));
        return {};
    }
    if (aSize) {
        *aSize = image.size();
    }
    if (aRequestedSize.width() > 0 && aRequestedSize.height() > 0) {
        return image.scaled(aRequestedSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    if (aRequestedSize.width() > 0) {
        return image.scaledToWidth(aRequestedSize.width(), Qt::SmoothTransformation);
    }
    if (aRequestedSize.height() > 0) {
        return image.scaledToHeight(aRequestedSize.height(), Qt::SmoothTransformation);
    }
    return image;
}

} // namespace Hmi::Core
