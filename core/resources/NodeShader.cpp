#include "resources/NodeShader.h"

#include "resources/StreamReader.h"

#include <QDataStream>

namespace Hmi::Core {

namespace {

bool isTrue(const QString& aText)
{
    return aText == QLatin1String("true");
}

bool isFileTag(const QXmlStreamReader& aReader)
{
    return aReader.attributes().value(QLatin1String("file")) == QLatin1String("true");
}

} // namespace

NodeShader::NodeShader(const QString& aBasePath, const QString& aName)
    : XmlNode(aName)
    , mBasePath(aBasePath)
{ }

NodeShader::~NodeShader() = default;

void NodeShader::registerTags(XmlLoader& aLoader)
{
    XmlNode::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("defaultsName"), &NodeShader::onDefaultsNameTagEnd);
    addTag(aLoader, QStringLiteral("meshResolutionWidth"), &NodeShader::onMeshResolutionWidthTagEnd);
    addTag(aLoader, QStringLiteral("meshResolutionHeight"), &NodeShader::onMeshResolutionHeightTagEnd);
    addTag(aLoader, QStringLiteral("shaderFragment"), &NodeShader::onShaderFragmentTagStart,
        &NodeShader::onShaderFragmentTagEnd);
    addTag(aLoader, QStringLiteral("shaderVertex"), &NodeShader::onShaderVertexTagStart,
        &NodeShader::onShaderVertexTagEnd);
    addTag(aLoader, QStringLiteral("supportsAtlasTextures"), &NodeShader::onSupportsAtlasTexturesTagEnd);
}

void NodeShader::onDefaultsNameTagEnd(const QString& aText)
{
    mDefaultsName = aText;
}

void NodeShader::onMeshResolutionWidthTagEnd(const QString& aText)
{
    mMeshResolution.setWidth(aText.toInt());
}

void NodeShader::onMeshResolutionHeightTagEnd(const QString& aText)
{
    mMeshResolution.setHeight(aText.toInt());
}

void NodeShader::onShaderFragmentTagStart(const QXmlStreamReader& aReader)
{
    mShaderFragmentFile = isFileTag(aReader);
}

void NodeShader::onShaderFragmentTagEnd(const QString& aText)
{
    mShaderFragment = aText;
}

void NodeShader::onShaderVertexTagStart(const QXmlStreamReader& aReader)
{
    mShaderVertexFile = isFileTag(aReader);
}

void NodeShader::onShaderVertexTagEnd(const QString& aText)
{
    mShaderVertex = aText;
}

void NodeShader::onSupportsAtlasTexturesTagEnd(const QString& aText)
{
    mSupportsAtlasTextures = isTrue(aText);
}

void NodeShader::writeFields(QDataStream& aStream) const
{
    aStream << mDefaultsName << qint32(mMeshResolution.width()) << qint32(mMeshResolution.height())
            << mShaderFragment << mShaderFragmentFile << mShaderVertex << mShaderVertexFile
            << mSupportsAtlasTextures;
}

void NodeShader::readFields(QDataStream& aStream)
{
    StreamReader reader(aStream);
    QString defaultsName;
    QString fragment;
    QString vertex;
    if (!reader.readString(defaultsName) || !reader.readBlock(4 + 4)) {
        return;
    }
    const qint32 meshWidth = reader.takeInt32();
    const qint32 meshHeight = reader.takeInt32();
    if (!reader.readString(fragment) || !reader.readBlock(1)) {
        return;
    }
    const bool fragmentFile = reader.takeBool();
    // The vertex shader, its file flag and the atlas flag.
    if (!reader.readString(vertex) || !reader.readBlock(1 + 1)) {
        return;
    }
    mDefaultsName = defaultsName;
    mMeshResolution = QSize(meshWidth, meshHeight);
    mShaderFragment = fragment;
    mShaderFragmentFile = fragmentFile;
    mShaderVertex = vertex;
    mShaderVertexFile = reader.takeBool();
    mSupportsAtlasTextures = reader.takeBool();
}

} // namespace Hmi::Core
