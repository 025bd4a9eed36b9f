#include "handles/HandleShaderResource.h"

#include "resources/NodeShader.h"
#include "resources/NodeImage.h"

#include <QDebug>
#include <QFile>

namespace Hmi::Core {

namespace {

    // A shader the theme gives as a file name is read from the package it came with.
    QString shaderSource(const NodeShader& aNode, const QString& aText, bool aIsFile)
    {
        if (!aIsFile || aText.isEmpty()) {
            return aText;
        }
        const QString path = NodeImage::toFilePath(NodeImage::makeUrl(aNode.getBasePath(), aText));
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            qWarning("WARNING: Shader file %s of %s could not be read.", qUtf8Printable(path),
                qUtf8Printable(aNode.getName()));
            return QString();
        }
        return QString::fromUtf8(file.readAll());
    }

} // namespace

HandleShaderResource::HandleShaderResource(QObject* aParent)
    : HandleShader(aParent)
    , mState(this, ResourceType::Shader,
          { [this] { emit nameChanged(); }, [this] { emit nameExistsChanged(); }, [this] { emitAllChanged(); } })
{
}

HandleShaderResource::~HandleShaderResource() = default;

QString HandleShaderResource::getDefaultsName() const
{
    const auto node = mState.get<NodeShader>();
    return node ? node->getDefaultsName() : HandleShader::getDefaultsName();
}

QSize HandleShaderResource::getMeshResolution() const
{
    const auto node = mState.get<NodeShader>();
    return node ? node->getMeshResolution() : HandleShader::getMeshResolution();
}

QString HandleShaderResource::getShaderFragment() const
{
    const auto node = mState.get<NodeShader>();
    return node ? shaderSource(*node, node->getShaderFragment(), node->isShaderFragmentFile()) : HandleShader::getShaderFragment();
}

QString HandleShaderResource::getShaderVertex() const
{
    const auto node = mState.get<NodeShader>();
    return node ? shaderSource(*node, node->getShaderVertex(), node->isShaderVertexFile()) : HandleShader::getShaderVertex();
}

bool HandleShaderResource::getSupportsAtlasTextures() const
{
    const auto node = mState.get<NodeShader>();
    return node ? node->getSupportsAtlasTextures() : HandleShader::getSupportsAtlasTextures();
}

} // namespace Hmi::Core
