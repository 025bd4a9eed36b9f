#pragma once

#include "resources/ResourceType.h"
#include "resources/XmlNode.h"

#include <QMargins>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QUrl>

namespace Hmi::Core {

/**
 * A named image or animation (an image with frames): its source, sizes and margins. The file
 * name in the resource file is relative to the base path, the directory of the resource file.
 */
class HMICORE_EXPORT NodeImage : public XmlNode
{
public:
    static constexpr ResourceType sResourceType = ResourceType::Image;

    explicit NodeImage(const QString& aBasePath = QString(), const QString& aName = QString());
    ~NodeImage() override;

    /**
     * The URL of aBasePath + aFileName, concatenated as they are; the file name is never parsed
     * as URL syntax, so '#', '?' and '%' stay part of it.
     * - ":/dir/" (a Qt resource path) gives "qrc:/dir/<file>";
     * - a base path with a scheme ("qrc:/dir/", "file:///dir/") keeps its scheme and authority;
     * - an absolute local path gives a "file:" URL;
     * - anything else, an empty base path included, gives a relative URL holding just the path.
     * With an empty base path, a file name that carries a scheme itself is taken as a URL.
     */
    static QUrl makeUrl(const QString& aBasePath, const QString& aFileName);
    /// The path QFile opens for a URL made by makeUrl(): ":/..." for "qrc:", a local path for "file:".
    static QString toFilePath(const QUrl& aUrl);

    const QString& getBasePath() const { return mBasePath; }

    const QString& getDefaultsName() const { return mDefaultsName; }
    void setDefaultsName(const QString& aName) { mDefaultsName = aName; }
    int getFrameCount() const { return mFrameCount; }
    void setFrameCount(int aCount) { mFrameCount = aCount; }
    QSize getFrameSize() const { return mFrameSize; }
    void setFrameSize(const QSize& aSize) { mFrameSize = aSize; }
    QSizeF getImplicitSize() const { return mImplicitSize; }
    void setImplicitSize(const QSizeF& aSize) { mImplicitSize = aSize; }
    QMargins getPaddingExternal() const { return mPaddingExternal; }
    void setPaddingExternal(const QMargins& aMargins) { mPaddingExternal = aMargins; }
    QMargins getPaddingInternal() const { return mPaddingInternal; }
    void setPaddingInternal(const QMargins& aMargins) { mPaddingInternal = aMargins; }
    const QUrl& getSource() const { return mSource; }
    void setSource(const QUrl& aSource) { mSource = aSource; }
    QSize getSourceSize() const { return mSourceSize; }
    /**
     * Stores the size of the loaded image and fills the sizes that were left open: the frame
     * size when either frame dimension is below 1, the implicit size unless both of its
     * dimensions are above 0.
     */
    void setSourceSize(const QSize& aSize);
    QMargins getTileMargins() const { return mTileMargins; }
    void setTileMargins(const QMargins& aMargins) { mTileMargins = aMargins; }

    void registerTags(XmlLoader& aLoader) override;
    void onDefaultsNameTagEnd(const QString& aText);
    void onDesiredWidthTagEnd(const QString& aText);
    void onDesiredHeightTagEnd(const QString& aText);
    void onFrameCountTagEnd(const QString& aText);
    void onFrameWidthTagEnd(const QString& aText);
    void onFrameHeightTagEnd(const QString& aText);
    void onWidthTagEnd(const QString& aText);
    void onHeightTagEnd(const QString& aText);
    void onFileTagEnd(const QString& aText);
    void onPaddingExternalLeftTagEnd(const QString& aText);
    void onPaddingExternalTopTagEnd(const QString& aText);
    void onPaddingExternalRightTagEnd(const QString& aText);
    void onPaddingExternalBottomTagEnd(const QString& aText);
    void onUsableLeftMarginTagEnd(const QString& aText);
    void onUsableTopMarginTagEnd(const QString& aText);
    void onUsableRightMarginTagEnd(const QString& aText);
    void onUsableBottomMarginTagEnd(const QString& aText);
    void onTileLeftMarginTagEnd(const QString& aText);
    void onTileTopMarginTagEnd(const QString& aText);
    void onTileRightMarginTagEnd(const QString& aText);
    void onTileBottomMarginTagEnd(const QString& aText);

protected:
    /// Stores only the file name of the source; reading puts the base path in front of it.
    void writeFields(QDataStream& aStream) const override;
    void readFields(QDataStream& aStream) override;

private:
    QString mDefaultsName;
    int mFrameCount = 1;
    QSize mFrameSize { -1, -1 };
    QSizeF mImplicitSize { 0, 0 };
    QMargins mPaddingExternal;
    QMargins mPaddingInternal;
    QString mBasePath;
    QUrl mSource;
    QSize mSourceSize { -1, -1 };
    QMargins mTileMargins;
};

} // namespace Hmi::Core
