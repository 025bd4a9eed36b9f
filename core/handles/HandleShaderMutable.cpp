#include "handles/HandleShaderMutable.h"

#include "handles/MutableProperty.h"

namespace Hmi::Core {

HandleShaderMutable::HandleShaderMutable(QObject* aParent)
    : HandleShader(aParent)
{
}

HandleShaderMutable::~HandleShaderMutable() = default;

void HandleShaderMutable::setDefaultsName(const QString& aDefaultsName)
{
    assignAndNotify(mDefaultsName, aDefaultsName, [this] { emit defaultsNameChanged(); });
}

void HandleShaderMutable::setMeshResolution(const QSize& aMeshResolution)
{
    assignAndNotify(mMeshResolution, aMeshResolution, [this] { emit meshResolutionChanged(); });
}

void HandleShaderMutable::setShaderFragment(const QString& aShaderFragment)
{
    assignAndNotify(mShaderFragment, aShaderFragment, [this] { emit shaderFragmentChanged(); });
}

void HandleShaderMutable::setShaderVertex(const QString& aShaderVertex)
{
    assignAndNotify(mShaderVertex, aShaderVertex, [this] { emit shaderVertexChanged(); });
}

void HandleShaderMutable::setSupportsAtlasTextures(bool aSupportsAtlasTextures)
{
    assignAndNotify(mSupportsAtlasTextures, aSupportsAtlasTextures, [this] { emit supportsAtlasTexturesChanged(); });
}

} // namespace Hmi::Core
