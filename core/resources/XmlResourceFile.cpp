#include "resources/XmlResourceFile.h"

#include "resources/NodeColor.h"
#include "resources/NodeDefaults.h"
#include "resources/NodeFont.h"
#include "resources/NodeImage.h"
#include "resources/NodeRectangle.h"
#include "resources/NodeShader.h"

#include <QDebug>
#include <QFile>
#include <QFontInfo>

namespace Hmi::Core {

namespace {

    template <typename T>
    QSharedPointer<T> makeNode(const QString& aBasePath)
    {
        if constexpr (std::is_constructible_v<T, QString, QString>) {
            return QSharedPointer<T>::create(aBasePath, QString());
        } else {
            Q_UNUSED(aBasePath)
            return QSharedPointer<T>::create(QString());
        }
    }

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
    registerElement<NodeColor>(QStringLiteral("color"));
    registerElement<NodeDefaults>(QStringLiteral("defaults"));
    registerElement<NodeFont>(QStringLiteral("font"));
    registerElement<NodeImage>(QStringLiteral("image"));
    registerElement<NodeImage>(QStringLiteral("animation"));
    registerElement<NodeRectangle>(QStringLiteral("rectangle"));
    registerElement<NodeShader>(QStringLiteral("shader"));
}

XmlResourceFile::~XmlResourceFile() = default;

template <typename T>
void XmlResourceFile::registerElement(const QString& aTag)
{
    registerTag(aTag,
        { this,
            [this](const QXmlStreamReader&) {
                // A node element opened inside another one: keep what the outer one read.
                finishElement();
                mCurrentNode = makeNode<T>(getBasePath());
                mCurrentType = T::sResourceType;
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
