#pragma once

#include "hmicore_export.h"

#include <QQuickImageProvider>

namespace Hmi::Core {

/**
 * Serves the image of an image or rectangle node of the current theme by node name, so that QML
 * can write `source: "image://resourceImageProvider/buttonBackground"`. A requested size scales
 * the image (one zero dimension keeps the aspect ratio).
 */
class HMICORE_EXPORT ResourceImageProvider final : public QQuickImageProvider
{
public:
    static constexpr const char* sProviderId = "resourceImageProvider";

    ResourceImageProvider();
    ~ResourceImageProvider() override;

    QImage requestImage(const QString& aId, QSize* aSize, const QSize& aRequestedSize) override;
};

} // namespace Hmi::Core
