#pragma once

#include "hmicore_export.h"

#include <QObject>
#include <QSize>
#include <QString>

namespace Hmi::Core {

/**
 * Read-only shader description for a QML ShaderEffect: sources, mesh and the name of the
 * defaults that carry its uniform values. The plain handle holds no shader; the mutable and
 * resource-backed handles derive from it and override the getters.
 */
class HMICORE_EXPORT HandleShader : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString defaultsName READ getDefaultsName NOTIFY defaultsNameChanged)
    Q_PROPERTY(QSize meshResolution READ getMeshResolution NOTIFY meshResolutionChanged)
    Q_PROPERTY(QString shaderFragment READ getShaderFragment NOTIFY shaderFragmentChanged)
    Q_PROPERTY(QString shaderVertex READ getShaderVertex NOTIFY shaderVertexChanged)
    Q_PROPERTY(bool supportsAtlasTextures READ getSupportsAtlasTextures NOTIFY supportsAtlasTexturesChanged)

public:
    explicit HandleShader(QObject* aParent = nullptr);
    ~HandleShader() override;
    Q_DISABLE_COPY(HandleShader)

    virtual QString getDefaultsName() const;
    /// (1, 1): a single quad, as ShaderEffect uses by default.
    virtual QSize getMeshResolution() const;
    virtual QString getShaderFragment() const;
    virtual QString getShaderVertex() const;
    virtual bool getSupportsAtlasTextures() const;

signals:
    void defaultsNameChanged();
    void meshResolutionChanged();
    void shaderFragmentChanged();
    void shaderVertexChanged();
    void supportsAtlasTexturesChanged();

protected:
    /// For derived handles whose whole value was replaced at once (a new resource node).
    void emitAllChanged();
};

} // namespace Hmi::Core
