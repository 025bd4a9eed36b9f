#include "resources/XmlResourceFile.h"

#include "resources/NodeFont.h"

#include <QDebug>
#include <QFile>
#include <QFontInfo>

namespace Hmi::Core {

namespace {

    // A font that is not installed silently falls back to another one, which breaks layouts on
    // the target; say so, with what was asked for against what will be drawn.
    void reportFontMatch(const NodeFont& aNode)
    {
        const QFont& font = aNode.getFont();
        const QFontInfo actual(font);
        if (actual.exactMatch()) {
            return;
        }
        qWarning("Font '%s' does not have an exact match. The desired font needs to be installed.",
            qUtf8Printable(aNode.getName()));
        qDebug("             Requested, Actual");
        qDebug("Family: %*s, %s", 14, qUtf8Printable(font.family()), qUtf8Printable(actual.family()));
        qDebug("Bold:       %*d, %d", 10, font.weight() >= 58 ? 1 : 0, actual.weight() > 50 ? 1 : 0);
        qDebug("Italic:     %*d, %d", 10, int(font.italic()), int(actual.italic()));
        qDebug("Overline:   %*d, %d", 10, int(font.overline()), int(actual.overline()));
        qDebug("Pixel Size: %*d, %d", 10, font.pixelSize(), actual.pixelSize());
        qDebug("Point Size: %*d, %d", 10, font.pointSize(), actual.pointSize());
        qDebug("Strikeout:  %*d, %d", 10, int(font.strikeOut()), int(actual.strikeOut()));
        qDebug("Underline:  %*d, %d", 10, int(font.underline()), int(actual.underline()));
        qDebug("Weight:     %*d, %d", 10, font.weight(), actual.weight());
    }

} // namespace

XmlResourceFile::XmlResourceFile(const QString& aBasePath)
    : ResourceFile(aBasePath)
{
    registerTag(QStringLiteral("NvkQtResourceFile"), { this, {}, {} });
    registerElement(QStringLiteral("color"), ResourceType::Color);
    registerElement(QStringLiteral("defaults"), ResourceType::Defaults);
    registerElement(QStringLiteral("font"), ResourceType::Font);
    registerElement(QStringLiteral("image"), ResourceType::Image);
    registerElement(QStringLiteral("animation"), ResourceType::Image);
    registerElement(QStringLiteral("rectangle"), ResourceType::Rectangle);
    registerElement(QStringLiteral("shader"), ResourceType::Shader);
}

XmlResourceFile::~XmlResourceFile() = default;

void XmlResourceFile::registerElement(const QString& aTag, ResourceType aType)
{
    registerTag(aTag,
        { this,
            [this, aType](const QXmlStreamReader&) {
                // A node element opened inside another one: keep what the outer one read.
                finishElement();
                mCurrentNode = createNode(aType, getBasePath());
                mCurrentType = aType;
                mCurrentNode->registerTags(*this);
            },
            [this](const QString&) { finishElement(); } });
}

void XmlResourceFile::finishElement()
{
    if (!mCurrentNode) {
        return;
    }
    mCurrentNode->unregisterTags(*this);
    if (mCurrentType == ResourceType::Font) {
        reportFontMatch(static_cast<const NodeFont&>(*mCurrentNode));
    }
    insertNode(mCurrentType, mCurrentNode);
    mCurrentNode.reset();
}

bool XmlResourceFile::loadFile(const QString& aPath)
{
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const bool parsed = parse(&file);
    finishElement();
    return parsed;
}

bool XmlResourceFile::loadData(const QByteArray& aData)
{
    const bool parsed = parse(aData);
    finishElement();
    return parsed;
}

} // namespace Hmi::Core
