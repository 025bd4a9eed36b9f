#include "language/XmlLanguageFile.h"

#include "language/NodeText.h"

#include <QFile>

namespace Hmi::Core {

namespace {

const QString sKeyPrefix = QStringLiteral("STR_");
const QString sTrue = QStringLiteral("true");

} // namespace

const QString XmlLanguageFile::TAG_CATALOG = QStringLiteral("catalog");
const QString XmlLanguageFile::TAG_STRINGS = QStringLiteral("strings");
const QString XmlLanguageFile::TAG_SECTION = QStringLiteral("section");
const QString XmlLanguageFile::TAG_ENTRY = QStringLiteral("entry");
const QString XmlLanguageFile::TAG_STRING = QStringLiteral("string");
const QString XmlLanguageFile::TAG_VISUAL = QStringLiteral("visual");
const QString XmlLanguageFile::TAG_PRONUNCIATION = QStringLiteral("pronunciation");
const QString XmlLanguageFile::TAG_USAGE = QStringLiteral("usage");

XmlLanguageFile::XmlLanguageFile(const QString& aPath, bool aCatalogOnly)
    : LanguageFile(aPath, aCatalogOnly)
    , mPrefix(sKeyPrefix)
{
    addTag(TAG_CATALOG, &XmlLanguageFile::onTagCatalog, &XmlLanguageFile::onEndTagCatalog);
    addTag(TAG_STRINGS, &XmlLanguageFile::onTagStrings, &XmlLanguageFile::onEndTagStrings);
    addTag(TAG_SECTION, &XmlLanguageFile::onTagSection, &XmlLanguageFile::onEndTagSection);
    addTag(TAG_ENTRY, &XmlLanguageFile::onTagEntry, &XmlLanguageFile::onEndTagEntry);
    addTag(TAG_STRING, &XmlLanguageFile::onTagString, &XmlLanguageFile::onEndTagString);
    addTag(TAG_VISUAL, &XmlLanguageFile::onTagVisual, &XmlLanguageFile::onEndTagVisual);
    addTag(TAG_PRONUNCIATION, &XmlLanguageFile::onTagPronunciation, &XmlLanguageFile::onEndTagPronunciation);
    addTag(TAG_USAGE, &XmlLanguageFile::onTagUsage, &XmlLanguageFile::onEndTagUsage);
}

XmlLanguageFile::~XmlLanguageFile() = default;

void XmlLanguageFile::addTag(const QString& aTag, void (XmlLanguageFile::*aOnStart)(const QXmlStreamReader&),
    void (XmlLanguageFile::*aOnEnd)(const QString&))
{
    registerTag(aTag,
        { this, [this, aOnStart](const QXmlStreamReader& aReader) { (this->*aOnStart)(aReader); },
            [this, aOnEnd](const QString& aText) { (this->*aOnEnd)(aText); } });
}

QSharedPointer<XmlLanguageFile> XmlLanguageFile::load(
    const QString& aPath, bool aCatalogOnly, QString* aError)
{
    QFile device(aPath);
    // An empty path is checked here: QFile would add a warning of its own.
    if (aPath.isEmpty() || !device.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (aError) {
            *aError = QStringLiteral("unknown error");
        }
        return {};
    }
    // Text mode drops every 0x0D byte, harmless in an 8-bit encoding, where XML normalises line
    // ends anyway, but in UTF-16 or UTF-32 it also hits code units such as U+010D or U+0D0A. Such
    // a file, told by its byte-order mark or by a zero byte around its first "<", is read as it
    // is, and the XML reader decodes it.
    const QByteArray start = device.peek(4);
    if (start.startsWith("\xFF\xFE") || start.startsWith("\xFE\xFF") || start.contains('\0')) {
        device.setTextModeEnabled(false);
    }
    auto file = QSharedPointer<XmlLanguageFile>::create(aPath, aCatalogOnly);
    // A broken document is logged by the loader; the texts before the fault are still worth
    // showing rather than none.
    file->parse(&device);
    // Parse state only: a loaded file must not keep a node it could still change.
    file->mCurrentNode.reset();
    return file;
}

void XmlLanguageFile::onTagCatalog(const QXmlStreamReader& aReader)
{
    const QXmlStreamAttributes attributes = aReader.attributes();
    if (attributes.hasAttribute(QLatin1String("codepage"))) {
        mContent.codePage = attributes.value(QLatin1String("codepage")).toString();
    }
    if (attributes.hasAttribute(QLatin1String("direction"))) {
        // Anything but a base-10 integer counts as 0, left to right.
        mContent.rightToLeft = attributes.value(QLatin1String("direction")).toInt(nullptr, 10) != 0;
    }
    if (attributes.hasAttribute(QLatin1String("language"))) {
        mContent.language = attributes.value(QLatin1String("language")).toString();
    }
    if (attributes.hasAttribute(QLatin1String("display_name"))) {
        mContent.displayName = attributes.value(QLatin1String("display_name")).toString();
    }
    if (attributes.hasAttribute(QLatin1String("file_version"))) {
        mContent.version = attributes.value(QLatin1String("file_version")).toFloat();
    }
    // A language list needs only the catalog; whatever follows it is never read, not even to
    // find out whether it is well-formed.
    if (isCatalogOnly()) {
        stop();
    }
}

void XmlLanguageFile::onEndTagCatalog(const QString&)
{ }

void XmlLanguageFile::onTagStrings(const QXmlStreamReader&)
{ }

void XmlLanguageFile::onEndTagStrings(const QString&)
{ }

void XmlLanguageFile::onTagSection(const QXmlStreamReader& aReader)
{
    const QXmlStreamAttributes attributes = aReader.attributes();
    if (!attributes.hasAttribute(QLatin1String("name"))) {
        return;
    }
    const QStringRef name = attributes.value(QLatin1String("name"));
    if (name == QLatin1String("default") || mPrefixTooLong) {
        return;
    }
    // Every key is a copy of the prefix, so a long one costs its length once per entry: a
    // 100 KB section name over a few thousand entries took most of a gigabyte.
    if (mPrefix.size() + name.size() + 1 > sMaxPrefixLength) {
        mPrefixTooLong = true;
        const QString shown
            = name.size() > 64 ? QString(name.left(64) + QStringLiteral("...")) : name.toString();
        qWarning("WARNING: Skipping the texts of section \"%s\": their keys would start with more than %d "
                 "characters.",
            qUtf8Printable(shown), sMaxPrefixLength);
        return;
    }
    mPrefix += name + QLatin1Char('_');
}

void XmlLanguageFile::onEndTagSection(const QString&)
{
    // Not the enclosing section's prefix: sections do not nest, and existing files rely on
    // leaving any section giving plain "STR_" keys.
    mPrefix = sKeyPrefix;
    mPrefixTooLong = false;
}

void XmlLanguageFile::onTagEntry(const QXmlStreamReader& aReader)
{
    if (mPrefixTooLong) {
        // Its strings must not land in the previous entry's node either.
        mCurrentNode.reset();
        return;
    }
    const QXmlStreamAttributes attributes = aReader.attributes();
    if (!attributes.hasAttribute(QLatin1String("handle"))) {
        // Nothing to name a node by; what follows still goes to the previous entry's node.
        return;
    }
    const QString key = mPrefix + attributes.value(QLatin1String("handle"));
    mCurrentNode = QSharedPointer<NodeText>::create(key);
    mContent.nodes.insert(key, mCurrentNode);
}

void XmlLanguageFile::onEndTagEntry(const QString&)
{ }

void XmlLanguageFile::onTagString(const QXmlStreamReader& aReader)
{
    const QXmlStreamAttributes attributes = aReader.attributes();
    if (attributes.hasAttribute(QLatin1String("default"))) {
        mDefaultString = attributes.value(QLatin1String("default")) == sTrue;
    }
}

void XmlLanguageFile::onEndTagString(const QString&)
{
    mDefaultString = false;
}

void XmlLanguageFile::onTagVisual(const QXmlStreamReader&)
{ }

void XmlLanguageFile::onEndTagVisual(const QString& aText)
{
    if (mCurrentNode) {
        mCurrentNode->setText(aText, mDefaultString);
    }
}

void XmlLanguageFile::onTagPronunciation(const QXmlStreamReader&)
{ }

void XmlLanguageFile::onEndTagPronunciation(const QString& aText)
{
    if (mCurrentNode) {
        mCurrentNode->setPronunciation(aText, mDefaultString);
    }
}

void XmlLanguageFile::onTagUsage(const QXmlStreamReader& aReader)
{
    if (!mCurrentNode) {
        return;
    }
    const QXmlStreamAttributes attributes = aReader.attributes();
    if (attributes.hasAttribute(QLatin1String("speechrec"))) {
        mCurrentNode->setUseSpeechRecognition(attributes.value(QLatin1String("speechrec")) == sTrue);
    }
    if (attributes.hasAttribute(QLatin1String("tts"))) {
        mCurrentNode->setUseTTS(attributes.value(QLatin1String("tts")) == sTrue);
    }
    if (attributes.hasAttribute(QLatin1String("visual"))) {
        mCurrentNode->setUseVisual(attributes.value(QLatin1String("visual")) == sTrue);
    }
}

void XmlLanguageFile::onEndTagUsage(const QString&)
{ }

} // namespace Hmi::Core
