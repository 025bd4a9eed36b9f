#pragma once

#include "resources/ResourceType.h"
#include "resources/XmlNode.h"

#include <QSize>
#include <QString>

namespace Hmi::Core {

/**
 * A named shader effect. The fragment and vertex texts are the shader source, or, when their
 * tag carries file="true", a file name relative to the base path.
 */
class HMICORE_EXPORT NodeShader final : public XmlNode
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Shader;

    explicit NodeShader(const QString& aBasePath = QString(), const QString& aName = QString());
    ~NodeShader() override;

    const QString& getBasePath() const { return mBasePath; }

    const QString& getDefaultsName() const { return mDefaultsName; }
    void setDefaultsName(const QString& aName) { mDefaultsName = aName; }
    QSize getMeshResolution() const { return mMeshResolution; }
    void setMeshResolution(const QSize& aResolution) { mMeshResolution = aResolution; }
    const QString& getShaderFragment() const { return mShaderFragment; }
    void setShaderFragment(const QString& aText) { mShaderFragment = aText; }
    /// True when getShaderFragment() is a file name rather than source.
    bool isShaderFragmentFile() const { return mShaderFragmentFile; }
    void setShaderFragmentFile(bool aFile) { mShaderFragmentFile = aFile; }
    const QString& getShaderVertex() const { return mShaderVertex; }
    void setShaderVertex(const QString& aText) { mShaderVertex = aText; }
    /// True when getShaderVertex() is a file name rather than source.
    bool isShaderVertexFile() const { return mShaderVertexFile; }
    void setShaderVertexFile(bool aFile) { mShaderVertexFile = aFile; }
    bool getSupportsAtlasTextures() const { return mSupportsAtlasTextures; }
    void setSupportsAtlasTextures(bool aSupports) { mSupportsAtlasTextures = aSupports; }

    void registerTags(XmlLoader& aLoader) override;
    void onDefaultsNameTagEnd(const QString& aText);
    void onMeshResolutionWidthTagEnd(const QString& aText);
    void onMeshResolutionHeightTagEnd(const QString& aText);
    void onShaderFragmentTagStart(const QXmlStreamReader& aReader);
    void onShaderFragmentTagEnd(const QString& aText);
    void onShaderVertexTagStart(const QXmlStreamReader& aReader);
    void onShaderVertexTagEnd(const QString& aText);
    void onSupportsAtlasTexturesTagEnd(const QString& aText);

protected:
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QString mDefaultsName;
    QSize mMeshResolution { 1, 1 };
    QString mBasePath;
    QString mShaderFragment;
    bool mShaderFragmentFile = false;
    QString mShaderVertex;
    bool mShaderVertexFile = false;
    bool mSupportsAtlasTextures = false;
};

} // namespace Hmi::Core
