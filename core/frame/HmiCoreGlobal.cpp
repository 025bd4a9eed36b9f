#include "frame/HmiCoreGlobal.h"

#include "frame/ApplicationViewPolicyBase.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/PerfEventPolicyBase.h"
#include "frame/TonePolicyBase.h"
#include "handles/HandleColor.h"
#include "handles/HandleDefaults.h"
#include "handles/HandleFont.h"
#include "handles/HandleImage.h"
#include "handles/HandleRectangle.h"
#include "handles/HandleShader.h"
#include "handles/HandleText.h"
#include "models/QVariantObjectListModel.h"

#include <QDebug>
#include <QGuiApplication>
#include <QMetaObject>
#include <QQuickItem>
#include <QStyleHints>

namespace Hmi::Core {

namespace {

    QStyleHints* styleHints()
    {
        return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::styleHints()
                                                                            : nullptr;
    }

    QString qmlTypeOf(const QObject* aObject, const QMetaObject* aMetaObject)
    {
        const QString name = QString::fromLatin1(aMetaObject->className());
        const int scope = name.lastIndexOf(QLatin1String("::"));
        if (scope >= 0) {
            return name.mid(scope + 2);
        }
        if (name.startsWith(QLatin1String("QQuick"))) {
            return name.mid(6);
        }
        const QString className = aObject->property("className").toString();
        if (!className.isEmpty()) {
            return className;
        }
        // Types defined in QML files get generated class names such as "HmiText_QMLTYPE_12".
        for (const QLatin1String marker : { QLatin1String("_QMLTYPE_"), QLatin1String("_QML_") }) {
            const int at = name.indexOf(marker);
            if (at >= 0) {
                return name.left(at);
            }
        }
        return name;
    }

} // namespace

HmiCoreGlobal::HmiCoreGlobal(QQmlEngine* /*aEngine*/, QJSEngine* /*aScriptEngine*/)
    : mConfigs(new HmiCoreConfigs(this))
    , mHandleColorEmpty(new HandleColor(this))
    , mHandleFontEmpty(new HandleFont(this))
    , mHandleDefaultsEmpty(new HandleDefaults(this))
    , mHandleImageEmpty(new HandleImage(this))
    , mHandleRectangleEmpty(new HandleRectangle(this))
    , mHandleShaderEmpty(new HandleShader(this))
    , mHandleTextEmpty(new HandleText(this))
    // The do-nothing default is our child; the shared pointer must not delete it a second time.
    , mPerformanceEventPolicy(new PerfEventPolicyBase(this), [](PerfEventPolicyBase*) {})
{
    // Lets native code read the object-valued properties before the QML module is registered.
    qRegisterMetaType<ApplicationViewPolicyBase*>();
    qRegisterMetaType<HmiCoreConfigs*>();
    qRegisterMetaType<HandleColor*>();
    qRegisterMetaType<HandleFont*>();
    qRegisterMetaType<HandleDefaults*>();
    qRegisterMetaType<HandleImage*>();
    qRegisterMetaType<HandleRectangle*>();
    qRegisterMetaType<HandleShader*>();
    qRegisterMetaType<HandleText*>();
}

HmiCoreGlobal::~HmiCoreGlobal() = default;

void HmiCoreGlobal::setApplicationViewPolicy(ApplicationViewPolicyBase* aPolicy)
{
    if (!aPolicy) {
        qWarning("Cannot set policy to nullptr.");
        return;
    }
    if (mApplicationViewPolicy) {
        qWarning("Cannot modify application view policy at runtime.");
        delete aPolicy;
        return;
    }
    mApplicationViewPolicy = aPolicy;
    mApplicationViewPolicy->setParent(this);
    mApplicationViewPolicy->initialize();
}

void HmiCoreGlobal::setPerformanceEventPolicy(const QSharedPointer<PerfEventPolicyBase>& aPolicy)
{
    if (!aPolicy || aPolicy == mPerformanceEventPolicy) {
        return;
    }
    mPerformanceEventPolicy = aPolicy;
}

void HmiCoreGlobal::setTonePolicy(TonePolicyBase* aPolicy)
{
    mTonePolicy = aPolicy;
}

bool HmiCoreGlobal::getChinesePhoneticKeyboardSupport() const
{
    return HMICORE_CHINESE_PHONETIC_KEYBOARD;
}

bool HmiCoreGlobal::getChinesePinxinKeyboardSupport() const
{
    return HMICORE_CHINESE_PINXIN_KEYBOARD;
}

HmiCoreGlobal::KeyboardType HmiCoreGlobal::getKeyboardType() const
{
    // The library draws its own keyboards from keyboard files.
    return KEYBOARD_TYPE_NORVAK;
}

bool HmiCoreGlobal::getQtGraphicalEffectsSupport() const
{
    return HMICORE_QT_GRAPHICAL_EFFECTS;
}

void HmiCoreGlobal::setButtonToneMute(bool aMute)
{
    if (mTonePolicy) {
        mTonePolicy->setButtonToneMute(aMute);
    }
}

QVariant HmiCoreGlobal::createQVariantObjectModel(QObject* aObject)
{
    return QVariant::fromValue<QObject*>(new QVariantObjectListModel(aObject));
}

HandleText* HmiCoreGlobal::createHandleText(const QString& aText, QObject* aParent)
{
    return new HandleText(aText, aParent);
}

PerfEventPolicyBase* HmiCoreGlobal::getPerformanceEventPolicy() const
{
    return mPerformanceEventPolicy.data();
}

QString HmiCoreGlobal::getQmlType(QObject* aObject) const
{
    if (!aObject) {
        return {};
    }
    return qmlTypeOf(aObject, aObject->metaObject());
}

QRectF HmiCoreGlobal::getRectIntersected(const QRectF& aRectangle1, const QRectF& aRectangle2) const
{
    return aRectangle1.intersected(aRectangle2);
}

int HmiCoreGlobal::getTouchDoubleClickInterval() const
{
    const QStyleHints* hints = styleHints();
    return hints ? hints->mouseDoubleClickInterval() : 400;
}

int HmiCoreGlobal::getTouchPressAndHoldInterval() const
{
    const QStyleHints* hints = styleHints();
    return hints ? hints->mousePressAndHoldInterval() : 800;
}

int HmiCoreGlobal::getTouchStartDragDistance() const
{
    const QStyleHints* hints = styleHints();
    return hints ? hints->startDragDistance() : 10;
}

bool HmiCoreGlobal::isQmlType(QObject* aObject, const QString& aType) const
{
    if (!aObject) {
        return false;
    }
    for (const QMetaObject* meta = aObject->metaObject(); meta; meta = meta->superClass()) {
        if (qmlTypeOf(aObject, meta) == aType) {
            return true;
        }
    }
    return false;
}

void HmiCoreGlobal::playButtonTone()
{
    if (mTonePolicy) {
        mTonePolicy->playButtonTone();
    }
}

void HmiCoreGlobal::playButtonToneInvalid()
{
    if (mTonePolicy) {
        mTonePolicy->playButtonToneInvalid();
    }
}

void HmiCoreGlobal::setDefaultFont(const QFont& aDefaultFont)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setFont(aDefaultFont);
    }
    emit defaultFontChanged(aDefaultFont);
}

void HmiCoreGlobal::setDefaultFontFamily(const QString& aDefaultFontFamily)
{
    setDefaultFont(QFont(aDefaultFontFamily));
}

void HmiCoreGlobal::setNewParent(QObject* aChild, QObject* aParent)
{
    if (!aChild) {
        return;
    }
    aChild->setParent(aParent);
    // Visual children also need the visual parent, or they would not be drawn under aParent.
    auto* childItem = qobject_cast<QQuickItem*>(aChild);
    auto* parentItem = qobject_cast<QQuickItem*>(aParent);
    if (childItem && (parentItem || !aParent)) {
        childItem->setParentItem(parentItem);
    }
}

} // namespace Hmi::Core
