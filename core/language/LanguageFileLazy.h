#pragma once

#include "hmicore_export.h"

#include <QSharedPointer>
#include <QString>
#include <QWeakPointer>

#include <mutex>

namespace Hmi::Core {

class LanguageFile;

/**
 * A language file known by its path and loaded on demand. It never keeps the file alive: the
 * file lives while a caller holds it, and the next request after the last holder let go loads it
 * again. Safe to call from several threads; simultaneous requests get the same file.
 */
class HMICORE_EXPORT LanguageFileLazy final
{
public:
    explicit LanguageFileLazy(const QString& aPath);
    ~LanguageFileLazy();
    Q_DISABLE_COPY(LanguageFileLazy)

    const QString& getPath() const { return mPath; }

    /**
     * The file, loaded as binary when the path ends in ".dat" and as XML otherwise. A file still
     * held from an earlier request is handed out again when it is fully loaded or when
     * aCatalogInfoOnly is set. Null, with a critical message, when the file cannot be loaded.
     */
    QSharedPointer<LanguageFile> getFile(bool aCatalogInfoOnly);

private:
    const QString mPath;
    // Not QMutex: with std::mutex, ThreadSanitizer sees the locking of an uninstrumented Qt.
    std::mutex mMutex;
    QWeakPointer<LanguageFile> mFile;
};

} // namespace Hmi::Core
