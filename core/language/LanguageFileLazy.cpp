#include "language/LanguageFileLazy.h"

#include "language/BinaryLanguageFile.h"
#include "language/XmlLanguageFile.h"

#include <QtDebug>

namespace Hmi::Core {

LanguageFileLazy::LanguageFileLazy(const QString& aPath)
    : mPath(aPath)
{ }

LanguageFileLazy::~LanguageFileLazy() = default;

QSharedPointer<LanguageFile> LanguageFileLazy::getFile(bool aCatalogInfoOnly)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    QSharedPointer<LanguageFile> file = mFile.toStrongRef();
    if (file && (aCatalogInfoOnly || file->getIsFullyLoaded())) {
        return file;
    }
    QString error;
    if (mPath.endsWith(QLatin1String(".dat"))) {
        file = BinaryLanguageFile::load(mPath, aCatalogInfoOnly, &error);
    } else {
        file = XmlLanguageFile::load(mPath, aCatalogInfoOnly, &error);
    }
    if (!file) {
        qCritical(
            "Unable to load language file: %s, reason: %s", qUtf8Printable(mPath), qUtf8Printable(error));
    }
    // A failure replaces the remembered file too: once the file on disk turned out unreadable,
    // an older copy that someone still holds is not handed out again.
    mFile = file;
    return file;
}

} // namespace Hmi::Core
