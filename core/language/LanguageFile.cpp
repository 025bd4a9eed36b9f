#include "language/LanguageFile.h"

#include "language/NodeText.h"

namespace Hmi::Core {

LanguageFile::LanguageFile(const QString& aPath, bool aCatalogOnly)
    : mPath(aPath)
    , mCatalogOnly(aCatalogOnly)
{ }

LanguageFile::~LanguageFile() = default;

bool LanguageFile::getIsFullyLoaded() const
{
    return !mCatalogOnly;
}

QString LanguageFile::getLanguage() const
{
    return mContent.language;
}

QString LanguageFile::getDisplayName() const
{
    return mContent.displayName;
}

QSharedPointer<const NodeText> LanguageFile::getNode(const QString& aName) const
{
    return mContent.nodes.value(aName);
}

bool LanguageFile::getRightToLeft() const
{
    return mContent.rightToLeft;
}

float LanguageFile::getVersion() const
{
    return mContent.version;
}

bool LanguageFile::hasNode(const QString& aName) const
{
    return mContent.nodes.contains(aName);
}

} // namespace Hmi::Core
