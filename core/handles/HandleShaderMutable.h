#pragma once

#include "handles/HandleShader.h"

namespace Hmi::Core {

/// A shader set directly, for effects that do not come from the theme.
class HMICORE_EXPORT HandleShaderMutable : public HandleShader
{
    Q_OBJECT
    Q_PROPERTY(QString defaultsName READ getDefaultsName WRITE setDefaultsName NOTIFY defaultsNameChanged)
    Q_PROPERTY(QSize meshResolution READ getMeshResolution WRITE setMeshResolution NOTIFY meshResolutionChanged)
    Q_PROPERTY(QString shaderFragment READ getShaderFragment WRITE setShaderFragment NOTIFY shaderFragmentChanged)
    Q_PROPERTY(QString shaderVertex READ getShaderVertex WRITE setShaderVertex NOTIFY shaderVertexChanged)
    Q_PROPERTY(bool supportsAtlasTextures READ getSupportsAtlasTextures WRITE setSupportsAtlasTextures NOTIFY
            supportsAtlasTexturesChanged)

public:
    explicit HandleShaderMutable(QObject* aParent = nullptr);
    ~HandleShaderMutable() override;
    Q_DISABLE_COPY(HandleShaderMutable)

    QString getDefaultsName() const override { return mDefaultsName; }
    void setDefaultsName(const QString& aDefaultsName);
    QSize getMeshResolution() const override { return mMeshResolution; }
    void setMeshResolution(const QSize& aMeshResolution);
    QString getShaderFragment() const override { return mShaderFragment; }
    void setShaderFragment(const QString& aShaderFragment);
    QString getShaderVertex() const override { return mShaderVertex; }
    void setShaderVertex(const QString& aShaderVertex);
    bool getSupportsAtlasTextures() const override { return mSupportsAtlasTextures; }
    void setSupportsAtlasTextures(bool aSupportsAtlasTextures);

private:
    QString mDefaultsName;
    QSize mMeshResolution { 1, 1 };
    QString mShaderFragment;
    QString mShaderVertex;
    bool mSupportsAtlasTextures = false;
};

} // namespace Hmi::Core
