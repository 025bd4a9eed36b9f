#include "resources/NodeImage.h"

#include "resources/StreamReader.h"

#include <QDataStream>
#include <QDir>

namespace Hmi::Core {

namespace {

bool isAsciiLetter(QChar aChar)
{
    return (aChar >= QLatin1Char('a') && aChar <= QLatin1Char('z'))
        || (aChar >= QLatin1Char('A') && aChar <= QLatin1Char('Z'));
}

// A letter, then at least one more letter, digit, '+', '.' or '-', then ':'; at least two
// characters, so that a drive letter ("C:/themes") is not taken for a scheme. By hand rather
// than a regular expression: it runs for every image node that is loaded.
bool hasScheme(const QString& aText)
{
    if (aText.isEmpty() || !isAsciiLetter(aText.at(0))) {
        return false;
    }
    for (int i = 1; i < aText.size(); ++i) {
        const QChar c = aText.at(i);
        if (c == QLatin1Char(':')) {
            return i >= 2;
        }
        if (!isAsciiLetter(c) && !(c >= QLatin1Char('0') && c <= QLatin1Char('9')) && c != QLatin1Char('+')
            && c != QLatin1Char('.') && c != QLatin1Char('-')) {
            return false;
        }
    }
    return false;
}

QUrl pathOnlyUrl(const QString& aScheme, const QString& aPath)
{
    QUrl url;
    url.setScheme(aScheme);
    // DecodedMode differs from TolerantMode only in escaping '%' first, which QUrl does with a
    // QString::replace() that nearly doubles the cost of the URL; skip it when there is no '%'.
    url.setPath(aPath, aPath.contains(QLatin1Char('%')) ? QUrl::DecodedMode : QUrl::TolerantMode);
    return url;
}

// Spelled out rather than Qt's QSize/QMargins operators: the record layout is ours to keep.
void writeMargins(QDataStream& aStream, const QMargins& aMargins)
{
    aStream << qint32(aMargins.left()) << qint32(aMargins.top()) << qint32(aMargins.right())
            << qint32(aMargins.bottom());
}

QMargins takeMargins(StreamReader& aReader)
{
    const int left = aReader.takeInt32();
    const int top = aReader.takeInt32();
    const int right = aReader.takeInt32();
    return QMargins(left, top, right, aReader.takeInt32());
}

void writeSize(QDataStream& aStream, const QSize& aSize)
{
    aStream << qint32(aSize.width()) << qint32(aSize.height());
}

QSize takeSize(StreamReader& aReader)
{
    const int width = aReader.takeInt32();
    return QSize(width, aReader.takeInt32());
}

} // namespace

NodeImage::NodeImage(const QString& aBasePath, const QString& aName)
    : XmlNode(aName)
    , mBasePath(aBasePath)
{ }

NodeImage::~NodeImage() = default;

QUrl NodeImage::makeUrl(const QString& aBasePath, const QString& aFileName)
{
    const QString path = aBasePath + aFileName;
    // The usual case first: an absolute local path gives what QUrl::fromLocalFile() gives, without
    // the QFileInfo that QDir::isAbsolutePath() builds. A leading "//" names a host; Qt handles it.
    const QString localPath = QDir::fromNativeSeparators(path);
    if (localPath.startsWith(QLatin1Char('/')) && !localPath.startsWith(QLatin1String("//"))) {
        return pathOnlyUrl(QStringLiteral("file"), localPath);
    }
    if (path.startsWith(QLatin1String(":/"))) {
        return pathOnlyUrl(QStringLiteral("qrc"), path.mid(1));
    }
    if (hasScheme(aBasePath)) {
        QUrl url(aBasePath, QUrl::TolerantMode);
        url.setPath(url.path(QUrl::FullyDecoded) + aFileName, QUrl::DecodedMode);
        return url;
    }
    if (aBasePath.isEmpty() && hasScheme(aFileName)) {
        return QUrl(aFileName, QUrl::TolerantMode);
    }
    if (QDir::isAbsolutePath(path)) {
        return QUrl::fromLocalFile(path);
    }
    return pathOnlyUrl(QString(), path);
}

void NodeImage::setSourceSize(const QSize& aSize)
{
    mSourceSize = aSize;
    if (mFrameSize.width() < 1 || mFrameSize.height() < 1) {
        mFrameSize = aSize;
    }
    if (!(mImplicitSize.width() > 0 && mImplicitSize.height() > 0)) {
        mImplicitSize = QSizeF(aSize);
    }
}

void NodeImage::registerTags(XmlLoader& aLoader)
{
    XmlNode::registerTags(aLoader);
    addTag(aLoader, QStringLiteral("defaultsName"), &NodeImage::onDefaultsNameTagEnd);
    addTag(aLoader, QStringLiteral("desiredWidth"), &NodeImage::onDesiredWidthTagEnd);
    addTag(aLoader, QStringLiteral("desiredHeight"), &NodeImage::onDesiredHeightTagEnd);
    addTag(aLoader, QStringLiteral("frameCount"), &NodeImage::onFrameCountTagEnd);
    addTag(aLoader, QStringLiteral("frameWidth"), &NodeImage::onFrameWidthTagEnd);
    addTag(aLoader, QStringLiteral("frameHeight"), &NodeImage::onFrameHeightTagEnd);
    addTag(aLoader, QStringLiteral("width"), &NodeImage::onWidthTagEnd);
    addTag(aLoader, QStringLiteral("height"), &NodeImage::onHeightTagEnd);
    addTag(aLoader, QStringLiteral("file"), &NodeImage::onFileTagEnd);
    addTag(aLoader, QStringLiteral("paddingExternalLeft"), &NodeImage::onPaddingExternalLeftTagEnd);
    addTag(aLoader, QStringLiteral("paddingExternalTop"), &NodeImage::onPaddingExternalTopTagEnd);
    addTag(aLoader, QStringLiteral("paddingExternalRight"), &NodeImage::onPaddingExternalRightTagEnd);
    addTag(aLoader, QStringLiteral("paddingExternalBottom"), &NodeImage::onPaddingExternalBottomTagEnd);
    addTag(aLoader, QStringLiteral("usableLeftMargin"), &NodeImage::onUsableLeftMarginTagEnd);
    addTag(aLoader, QStringLiteral("usableTopMargin"), &NodeImage::onUsableTopMarginTagEnd);
    addTag(aLoader, QStringLiteral("usableRightMargin"), &NodeImage::onUsableRightMarginTagEnd);
    addTag(aLoader, QStringLiteral("usableBottomMargin"), &NodeImage::onUsableBottomMarginTagEnd);
    addTag(aLoader, QStringLiteral("tileLeftMargin"), &NodeImage::onTileLeftMarginTagEnd);
    addTag(aLoader, QStringLiteral("tileTopMargin"), &NodeImage::onTileTopMarginTagEnd);
    addTag(aLoader, QStringLiteral("tileRightMargin"), &NodeImage::onTileRightMarginTagEnd);
    addTag(aLoader, QStringLiteral("tileBottomMargin"), &NodeImage::onTileBottomMarginTagEnd);
}

void NodeImage::onDefaultsNameTagEnd(const QString& aText)
{
    mDefaultsName = aText;
}

void NodeImage::onDesiredWidthTagEnd(const QString& aText)
{
    mImplicitSize.setWidth(qreal(aText.toFloat()));
}

void NodeImage::onDesiredHeightTagEnd(const QString& aText)
{
    mImplicitSize.setHeight(qreal(aText.toFloat()));
}

void NodeImage::onFrameCountTagEnd(const QString& aText)
{
    mFrameCount = aText.toInt();
}

void NodeImage::onFrameWidthTagEnd(const QString& aText)
{
    mFrameSize.setWidth(aText.toInt());
}

void NodeImage::onFrameHeightTagEnd(const QString& aText)
{
    mFrameSize.setHeight(aText.toInt());
}

// A plain width or height fills in whichever of the three sizes was not given more precisely.

void NodeImage::onWidthTagEnd(const QString& aText)
{
    const int width = aText.toInt();
    if (mFrameSize.width() < 0) {
        mFrameSize.setWidth(width);
    }
    if (mSourceSize.width() < 0) {
        mSourceSize.setWidth(width);
    }
    if (mImplicitSize.width() == 0) {
        mImplicitSize.setWidth(width);
    }
}

void NodeImage::onHeightTagEnd(const QString& aText)
{
    const int height = aText.toInt();
    if (mFrameSize.height() < 0) {
        mFrameSize.setHeight(height);
    }
    if (mSourceSize.height() < 0) {
        mSourceSize.setHeight(height);
    }
    if (mImplicitSize.height() == 0) {
        mImplicitSize.setHeight(height);
    }
}

void NodeImage::onFileTagEnd(const QString& aText)
{
    if (!aText.isEmpty()) {
        mSource = makeUrl(mBasePath, aText);
    }
}

void NodeImage::onPaddingExternalLeftTagEnd(const QString& aText)
{
    mPaddingExternal.setLeft(aText.toInt());
}

void NodeImage::onPaddingExternalTopTagEnd(const QString& aText)
{
    mPaddingExternal.setTop(aText.toInt());
}

void NodeImage::onPaddingExternalRightTagEnd(const QString& aText)
{
    mPaddingExternal.setRight(aText.toInt());
}

void NodeImage::onPaddingExternalBottomTagEnd(const QString& aText)
{
    mPaddingExternal.setBottom(aText.toInt());
}

void NodeImage::onUsableLeftMarginTagEnd(const QString& aText)
{
    mPaddingInternal.setLeft(aText.toInt());
}

void NodeImage::onUsableTopMarginTagEnd(const QString& aText)
{
    mPaddingInternal.setTop(aText.toInt());
}

void NodeImage::onUsableRightMarginTagEnd(const QString& aText)
{
    mPaddingInternal.setRight(aText.toInt());
}

void NodeImage::onUsableBottomMarginTagEnd(const QString& aText)
{
    mPaddingInternal.setBottom(aText.toInt());
}

void NodeImage::onTileLeftMarginTagEnd(const QString& aText)
{
    mTileMargins.setLeft(aText.toInt());
}

void NodeImage::onTileTopMarginTagEnd(const QString& aText)
{
    mTileMargins.setTop(aText.toInt());
}

void NodeImage::onTileRightMarginTagEnd(const QString& aText)
{
    mTileMargins.setRight(aText.toInt());
}

void NodeImage::onTileBottomMarginTagEnd(const QString& aText)
{
    mTileMargins.setBottom(aText.toInt());
}

void NodeImage::writeFields(QDataStream& aStream) const
{
    // The base path is left out: the cache must stay valid when the package moves.
    aStream << mDefaultsName << mSource.fileName(QUrl::FullyDecoded) << qint32(mFrameCount);
    writeSize(aStream, mFrameSize);
    aStream << double(mImplicitSize.width()) << double(mImplicitSize.height());
    writeMargins(aStream, mPaddingExternal);
    writeMargins(aStream, mPaddingInternal);
    writeSize(aStream, mSourceSize);
    writeMargins(aStream, mTileMargins);
}

void NodeImage::readFields(QDataStream& aStream)
{
    StreamReader reader(aStream);
    QString defaultsName;
    QString fileName;
    // After the two strings, the rest in one read: frame count, frame size, implicit size (two
    // reals), external and internal padding, source size and tile margins.
    if (!reader.readString(defaultsName) || !reader.readString(fileName)
        || !reader.readBlock(4 + 8 + 2 * reader.getRealSize() + 16 + 16 + 8 + 16)) {
        return;
    }
    mDefaultsName = defaultsName;
    mFrameCount = reader.takeInt32();
    mFrameSize = takeSize(reader);
    const double implicitWidth = reader.takeReal();
    mImplicitSize = QSizeF(implicitWidth, reader.takeReal());
    mPaddingExternal = takeMargins(reader);
    mPaddingInternal = takeMargins(reader);
    mSourceSize = takeSize(reader);
    mTileMargins = takeMargins(reader);
    if (!fileName.isEmpty()) {
        mSource = makeUrl(mBasePath, fileName);
    }
}

QString NodeImage::toFilePath(const QUrl& aUrl)
{
    if (aUrl.scheme() == QLatin1String("qrc")) {
        return QLatin1Char(':') + aUrl.path();
    }
    return aUrl.isLocalFile() ? aUrl.toLocalFile() : aUrl.toString();
}

} // namespace Hmi::Core
