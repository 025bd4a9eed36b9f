#include "handles/HandleShader.h"

namespace Hmi::Core {

HandleShader::HandleShader(QObject* aParent)
    : QObject(aParent)
{ }

HandleShader::~HandleShader() = default;

QString HandleShader::getDefaultsName() const
{
    return QString();
}

QSize HandleShader::getMeshResolution() const
{
    return QSize(1, 1);
}

QString HandleShader::getShaderFragment() const
{
    return QString();
}

QString HandleShader::getShaderVertex() const
{
    return QString();
}

bool HandleShader::getSupportsAtlasTextures() const
{
    return false;
}

void HandleShader::emitAllChanged()
{
    emit defaultsNameChanged();
    emit meshResolutionChanged();
    emit shaderFragmentChanged();
    emit shaderVertexChanged();
    emit supportsAtlasTexturesChanged();
}

} // namespace Hmi::Core
