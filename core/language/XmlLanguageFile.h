#pragma once

#include "language/LanguageFile.h"
#include "resources/XmlLoader.h"

namespace Hmi::Core {

/**
 * Reads the XML form of a language file:
 *
 * \code
 * <catalog language="en_US" display_name="American English" codepage="UTF-8" direction="0"
 *          file_version="1.0">
 *   <strings>
 *     <section name="MENU">
 *       <entry handle="BACK">
 *         <string default="true"><visual>Back</visual><pronunciation>back</pronunciation></string>
 *         <string><usage speechrec="true" tts="true" visual="true"/></string>
 *       </entry>
 *     </section>
 *   </strings>
 * </catalog>
 * \endcode
 *
 * The entry's key is "STR_" + section name + "_" + handle ("STR_MENU_BACK"); the section part is
 * left out outside a section or in the section "default". Only the texts of the string marked
 * default="true" are kept, while usage flags apply from any string.
 */
class HMICORE_EXPORT XmlLanguageFile final : public XmlLoader, public LanguageFile
{
public:
    static const QString TAG_CATALOG;
    static const QString TAG_STRINGS;
    static const QString TAG_SECTION;
    static const QString TAG_ENTRY;
    static const QString TAG_STRING;
    static const QString TAG_VISUAL;
    static const QString TAG_PRONUNCIATION;
    static const QString TAG_USAGE;

    /// Longest key prefix ("STR_" and the section names) that a section may build; the texts of
    /// a section beyond it are skipped with a warning.
    static constexpr int sMaxPrefixLength = 256;

    XmlLanguageFile(const QString& aPath, bool aCatalogOnly);
    ~XmlLanguageFile() override;

    /**
     * Reads the file at aPath; with aCatalogOnly, stops right after the catalog's start tag.
     * Null, with aError set to "unknown error", only when the file cannot be opened: a document
     * broken part-way is logged and what was read before the fault is kept.
     */
    static QSharedPointer<XmlLanguageFile> load(
        const QString& aPath, bool aCatalogOnly, QString* aError = nullptr);

    void onTagCatalog(const QXmlStreamReader& aReader);
    void onEndTagCatalog(const QString& aText);
    void onTagStrings(const QXmlStreamReader& aReader);
    void onEndTagStrings(const QString& aText);
    void onTagSection(const QXmlStreamReader& aReader);
    void onEndTagSection(const QString& aText);
    void onTagEntry(const QXmlStreamReader& aReader);
    void onEndTagEntry(const QString& aText);
    void onTagString(const QXmlStreamReader& aReader);
    void onEndTagString(const QString& aText);
    void onTagVisual(const QXmlStreamReader& aReader);
    void onEndTagVisual(const QString& aText);
    void onTagPronunciation(const QXmlStreamReader& aReader);
    void onEndTagPronunciation(const QString& aText);
    void onTagUsage(const QXmlStreamReader& aReader);
    void onEndTagUsage(const QString& aText);

private:
    void addTag(const QString& aTag, void (XmlLanguageFile::*aOnStart)(const QXmlStreamReader&),
        void (XmlLanguageFile::*aOnEnd)(const QString&));

    // Parse state.
    QSharedPointer<NodeText> mCurrentNode;
    bool mDefaultString = false;
    QString mPrefix;
    bool mPrefixTooLong = false;
};

} // namespace Hmi::Core
