#pragma once

#include "hmicore_export.h"

#include <QMargins>
#include <QObject>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QUrl>

namespace Hmi::Core {

/**
 * Read-only themed image for QML: the source, its frames (for sprites), its sizes and its
 * margins. The plain handle holds the values its setters were given (none: no image); the mutable
 * handle makes them writable from QML, and the resource-backed handle overrides the getters.
 *
 * QML has no margins type, so each margin set is also offered as four integer properties that
 * share the set's change signal.
 *
 * \code
 * BorderImage {
 *     source: buttonImage.source
 *     border.left: buttonImage.tileMarginsLeft
 *     border.right: buttonImage.tileMarginsRight
 * }
 * \endcode
 */
class HMICORE_EXPORT HandleImage : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString defaultsName READ getDefaultsName NOTIFY defaultsNameChanged)
    Q_PROPERTY(int frameCount READ getFrameCount NOTIFY frameCountChanged)
    Q_PROPERTY(QSize frameSize READ getFrameSize NOTIFY frameSizeChanged)
    Q_PROPERTY(QSizeF implicitSize READ getImplicitSize NOTIFY implicitSizeChanged)
    Q_PROPERTY(QUrl source READ getSource NOTIFY sourceChanged)
    Q_PROPERTY(QSize sourceSize READ getSourceSize NOTIFY sourceSizeChanged)

    Q_PROPERTY(QMargins paddingExternal READ getPaddingExternal NOTIFY paddingExternalChanged)
    Q_PROPERTY(int paddingExternalLeft READ getPaddingExternalLeft NOTIFY paddingExternalChanged)
    Q_PROPERTY(int paddingExternalTop READ getPaddingExternalTop NOTIFY paddingExternalChanged)
    Q_PROPERTY(int paddingExternalRight READ getPaddingExternalRight NOTIFY paddingExternalChanged)
    Q_PROPERTY(int paddingExternalBottom READ getPaddingExternalBottom NOTIFY paddingExternalChanged)

    Q_PROPERTY(QMargins paddingInternal READ getPaddingInternal NOTIFY paddingInternalChanged)
    Q_PROPERTY(int paddingInternalLeft READ getPaddingInternalLeft NOTIFY paddingInternalChanged)
    Q_PROPERTY(int paddingInternalTop READ getPaddingInternalTop NOTIFY paddingInternalChanged)
    Q_PROPERTY(int paddingInternalRight READ getPaddingInternalRight NOTIFY paddingInternalChanged)
    Q_PROPERTY(int paddingInternalBottom READ getPaddingInternalBottom NOTIFY paddingInternalChanged)

    Q_PROPERTY(QMargins tileMargins READ getTileMargins NOTIFY tileMarginsChanged)
    Q_PROPERTY(int tileMarginsLeft READ getTileMarginsLeft NOTIFY tileMarginsChanged)
    Q_PROPERTY(int tileMarginsTop READ getTileMarginsTop NOTIFY tileMarginsChanged)
    Q_PROPERTY(int tileMarginsRight READ getTileMarginsRight NOTIFY tileMarginsChanged)
    Q_PROPERTY(int tileMarginsBottom READ getTileMarginsBottom NOTIFY tileMarginsChanged)

public:
    explicit HandleImage(QObject* aParent = nullptr);
    ~HandleImage() override;
    Q_DISABLE_COPY(HandleImage)

    /// Name of the defaults that go with the image, empty for none.
    virtual QString getDefaultsName() const { return mDefaultsName; }
    /// Number of frames in a sprite strip; 1 for a still image.
    virtual int getFrameCount() const { return mFrameCount; }
    /// (-1, -1) while unknown.
    virtual QSize getFrameSize() const { return mFrameSize; }
    /// The size the image asks for in a layout; (0, 0) for none.
    virtual QSizeF getImplicitSize() const { return mImplicitSize; }
    /// Space to keep around the image.
    virtual QMargins getPaddingExternal() const { return mPaddingExternal; }
    /// The usable area inside the image, as margins from its edges.
    virtual QMargins getPaddingInternal() const { return mPaddingInternal; }
    virtual QUrl getSource() const { return mSource; }
    /// (-1, -1) while unknown.
    virtual QSize getSourceSize() const { return mSourceSize; }
    /// The borders that stay unscaled when the image is stretched.
    virtual QMargins getTileMargins() const { return mTileMargins; }

    // Each setter emits its signal only on a real change.
    void setDefaultsName(const QString& aDefaultsName);
    void setFrameCount(int aFrameCount);
    void setFrameSize(const QSize& aFrameSize);
    void setImplicitSize(const QSizeF& aImplicitSize);
    void setPaddingExternal(const QMargins& aPaddingExternal);
    void setPaddingInternal(const QMargins& aPaddingInternal);
    void setSource(const QUrl& aSource);
    void setSourceSize(const QSize& aSourceSize);
    void setTileMargins(const QMargins& aTileMargins);

    int getPaddingExternalLeft() const { return getPaddingExternal().left(); }
    int getPaddingExternalTop() const { return getPaddingExternal().top(); }
    int getPaddingExternalRight() const { return getPaddingExternal().right(); }
    int getPaddingExternalBottom() const { return getPaddingExternal().bottom(); }
    int getPaddingInternalLeft() const { return getPaddingInternal().left(); }
    int getPaddingInternalTop() const { return getPaddingInternal().top(); }
    int getPaddingInternalRight() const { return getPaddingInternal().right(); }
    int getPaddingInternalBottom() const { return getPaddingInternal().bottom(); }
    int getTileMarginsLeft() const { return getTileMargins().left(); }
    int getTileMarginsTop() const { return getTileMargins().top(); }
    int getTileMarginsRight() const { return getTileMargins().right(); }
    int getTileMarginsBottom() const { return getTileMargins().bottom(); }

signals:
    void defaultsNameChanged();
    void frameCountChanged();
    void frameSizeChanged();
    void implicitSizeChanged();
    void paddingExternalChanged();
    void paddingInternalChanged();
    void sourceChanged();
    void sourceSizeChanged();
    void tileMarginsChanged();

protected:
    /// For derived handles whose whole value was replaced at once (a new resource node).
    virtual void emitAllChanged();

private:
    QString mDefaultsName;
    int mFrameCount = 1;
    QSize mFrameSize { -1, -1 };
    QSizeF mImplicitSize { 0, 0 };
    QMargins mPaddingExternal;
    QMargins mPaddingInternal;
    QUrl mSource;
    QSize mSourceSize { -1, -1 };
    QMargins mTileMargins;
};

} // namespace Hmi::Core
