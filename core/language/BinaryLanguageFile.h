#pragma once

#include "language/LanguageFile.h"

namespace Hmi::Core {

/**
 * The binary form of a language file (".glx.dat"), a little-endian QDataStream of version 17:
 * magic, format version, the catalog (code page, language, display name, a fourth string,
 * right-to-left, version as an 8-byte double), then the node count and one text record per node.
 * Texts are stored as they are, so a file compiled from XML holds line feeds where the XML had
 * backslash-n.
 */
class HMICORE_EXPORT BinaryLanguageFile final : public LanguageFile
{
public:
    static constexpr qint32 sMagic = 0x0C0E7492;
    static constexpr qint32 sVersion = 1;

    ~BinaryLanguageFile() override;

    /**
     * Reads the file at aPath; with aCatalogOnly, nothing after the catalog. Null on failure, with
     * aError set to the reason ("unable to read header", "magic bytes don't match", "version
     * doesn't match latest", "unable to read language info", "unable to read text nodes"), or
     * empty when the file cannot be opened.
     */
    static QSharedPointer<BinaryLanguageFile> load(
        const QString& aPath, bool aCatalogOnly, QString* aError = nullptr);

    /**
     * Writes aFile in the binary form, names ascending so that the same texts always give the
     * same bytes. Atomic: on failure any earlier file at aPath is left as it was. A file opened
     * catalog only is refused, as its texts were never read.
     */
    static bool save(const QString& aPath, const LanguageFile& aFile);

private:
    BinaryLanguageFile(const QString& aPath, bool aCatalogOnly);
};

} // namespace Hmi::Core
