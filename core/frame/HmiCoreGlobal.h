#pragma once

#include "frame/SingletonCppQml.h"
#include "hmicore_export.h"

#include <QFont>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace Hmi::Core {

class ApplicationViewPolicyBase;
class HandleColor;
class HandleDefaults;
class HandleFont;
class HandleImage;
class HandleRectangle;
class HandleShader;
class HandleText;
class HmiCoreConfigs;
class PerfEventPolicyBase;
class TonePolicyBase;

/**
 * The module-wide object that QML sees as the singleton `HmiCore`: the configuration, the shared
 * enumerations, one empty handle of each kind and a few helpers for QML.
 */
class HMICORE_EXPORT HmiCoreGlobal final : public QObject, public SingletonCppQml<HmiCoreGlobal>
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Core::ApplicationViewPolicyBase* applicationViewPolicy READ getApplicationViewPolicy CONSTANT)
    Q_PROPERTY(Hmi::Core::HmiCoreConfigs* configs READ configs CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleColor* HANDLE_COLOR_EMPTY MEMBER mHandleColorEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleFont* HANDLE_FONT_EMPTY MEMBER mHandleFontEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleDefaults* HANDLE_DEFAULTS_EMPTY MEMBER mHandleDefaultsEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleImage* HANDLE_IMAGE_EMPTY MEMBER mHandleImageEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleRectangle* HANDLE_RECTANGLE_EMPTY MEMBER mHandleRectangleEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleShader* HANDLE_SHADER_EMPTY MEMBER mHandleShaderEmpty CONSTANT)
    Q_PROPERTY(Hmi::Core::HandleText* HANDLE_TEXT_EMPTY MEMBER mHandleTextEmpty CONSTANT)
    Q_PROPERTY(bool chinesePhoneticKeyboardSupport READ getChinesePhoneticKeyboardSupport CONSTANT)
    Q_PROPERTY(bool chinesePinxinKeyboardSupport READ getChinesePinxinKeyboardSupport CONSTANT)
    Q_PROPERTY(KeyboardType keyboardType READ getKeyboardType CONSTANT)
    Q_PROPERTY(bool qtGraphicalEffectsSupport READ getQtGraphicalEffectsSupport CONSTANT)

public:
    enum ApplicationViewMode {
        ApplicationViewModeNormal,
        ApplicationViewModeSettings,
        ApplicationViewModeWidgetEmergencyAssist,
        ApplicationViewModeWidgetNavigation,
        ApplicationViewModeInvalid
    };
    Q_ENUM(ApplicationViewMode)

    enum ArrangerAnimationDirection {
        ARRANGER_ANIMATION_DIRECTION_NONE,
        ARRANGER_ANIMATION_DIRECTION_LEFT,
        ARRANGER_ANIMATION_DIRECTION_RIGHT,
        ARRANGER_ANIMATION_DIRECTION_UP,
        ARRANGER_ANIMATION_DIRECTION_DOWN
    };
    Q_ENUM(ArrangerAnimationDirection)

    enum ArrangerCardAnimationStyle {
        ARRANGER_CARD_ANIMATION_STYLE_NONE,
        ARRANGER_CARD_ANIMATION_STYLE_FADE,
        ARRANGER_CARD_ANIMATION_STYLE_COVER,
        ARRANGER_CARD_ANIMATION_STYLE_INVALID
    };
    Q_ENUM(ArrangerCardAnimationStyle)

    enum ArrangerPushAnimationStyle {
        ARRANGER_PUSH_ANIMATION_STYLE_NONE,
        ARRANGER_PUSH_ANIMATION_STYLE_DIRECT,
        ARRANGER_PUSH_ANIMATION_STYLE_CUBE,
        ARRANGER_PUSH_ANIMATION_STYLE_INVALID
    };
    Q_ENUM(ArrangerPushAnimationStyle)

    enum ArrangerSignalTypes {
        ARRANGER_SIGNAL_TYPE_ADD_FINISHED,
        ARRANGER_SIGNAL_TYPE_ADD_STARTED,
        ARRANGER_SIGNAL_TYPE_DISPLACE_FINISHED,
        ARRANGER_SIGNAL_TYPE_DISPLACE_STARTED,
        ARRANGER_SIGNAL_TYPE_REMOVE_FINISHED,
        ARRANGER_SIGNAL_TYPE_REMOVE_STARTED,
        ARRANGER_SIGNAL_TYPE_RESTORE_FINISHED,
        ARRANGER_SIGNAL_TYPE_RESTORE_STARTED,
        ARRANGER_SIGNAL_TYPE_SHOW_FINISHED,
        ARRANGER_SIGNAL_TYPE_SHOW_STARTED
    };
    Q_ENUM(ArrangerSignalTypes)

    enum GaugeMarkerTextOrientation {
        GAUGE_MARKER_TEXT_ORIENTATION_UPRIGHT,
        GAUGE_MARKER_TEXT_ORIENTATION_PARALLEL_TO_TICK,
        GAUGE_MARKER_TEXT_ORIENTATION_PARALLEL_TO_TICK_ROTATED_180,
        GAUGE_MARKER_TEXT_ORIENTATION_PERPENDICULAR_TO_TICK,
        GAUGE_MARKER_TEXT_ORIENTATION_PERPENDICULAR_TO_TICK_ROTATED_180
    };
    Q_ENUM(GaugeMarkerTextOrientation)

    enum GaugeRadialPathType {
        GAUGE_RADIAL_PATH_TYPE_NORMAL,
        GAUGE_RADIAL_PATH_TYPE_SHORTER,
        GAUGE_RADIAL_PATH_TYPE_LONGER,
        GAUGE_RADIAL_PATH_TYPE_CLOCKWISE,
        GAUGE_RADIAL_PATH_TYPE_COUNTERCLOCKWISE
    };
    Q_ENUM(GaugeRadialPathType)

    enum GradientType { GRADIENT_TYPE_CONICAL, GRADIENT_TYPE_LINEAR, GRADIENT_TYPE_RADIAL, GRADIENT_TYPE_INVALID };
    Q_ENUM(GradientType)

    enum GraphAxisLabelAlignments {
        GRAPH_AXIS_LABEL_ALIGN_START,
        GRAPH_AXIS_LABEL_ALIGN_CENTER,
        GRAPH_AXIS_LABEL_ALIGN_END
    };
    Q_ENUM(GraphAxisLabelAlignments)

    enum HmiRectangleTileMode {
        HMI_RECTANGLE_TILE_MODE_PAD,
        HMI_RECTANGLE_TILE_MODE_REPEAT,
        HMI_RECTANGLE_TILE_MODE_ROUND,
        HMI_RECTANGLE_TILE_MODE_STRETCH
    };
    Q_ENUM(HmiRectangleTileMode)

    // Not the rectangle's order: stretch comes first here, and existing QML relies on both.
    enum HmiImageTileMode {
        HMI_IMAGE_TILE_MODE_STRETCH,
        HMI_IMAGE_TILE_MODE_REPEAT,
        HMI_IMAGE_TILE_MODE_ROUND,
        HMI_IMAGE_TILE_MODE_PAD
    };
    Q_ENUM(HmiImageTileMode)

    enum KeyboardType {
        KEYBOARD_TYPE_NONE = 1,
        KEYBOARD_TYPE_NORVAK = 2,
        KEYBOARD_TYPE_OS = 4,
        KEYBOARD_TYPE_QT = 8
    };
    Q_ENUM(KeyboardType)

    enum TextEntryCapitalizationStyle {
        TEXT_ENTRY_CAPITALIZATION_STYLE_WORD,
        TEXT_ENTRY_CAPITALIZATION_STYLE_SENTENCE
    };
    Q_ENUM(TextEntryCapitalizationStyle)

    enum TouchInputEventState {
        TOUCH_INPUT_EVENT_STATE_PRESSED = 1,
        TOUCH_INPUT_EVENT_STATE_MOVED = 2,
        TOUCH_INPUT_EVENT_STATE_RELEASED = 4
    };
    Q_ENUM(TouchInputEventState)

    // Three consecutive bits per gesture (started, continued, ended) and their union.
    enum TouchInputGestureTypes {
        TOUCH_INPUT_GESTURE_TYPE_NONE = 0,
        TOUCH_INPUT_GESTURE_TYPE_TOUCH_STARTED = 1 << 0,
        TOUCH_INPUT_GESTURE_TYPE_TOUCH_CONTINUED = 1 << 1,
        TOUCH_INPUT_GESTURE_TYPE_TOUCH_ENDED = 1 << 2,
        TOUCH_INPUT_GESTURE_TYPE_TOUCH = 7 << 0,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_STARTED = 1 << 3,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_CONTINUED = 1 << 4,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_ENDED = 1 << 5,
        TOUCH_INPUT_GESTURE_TYPE_DRAG = 7 << 3,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_SINGLE_STARTED = 1 << 6,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_SINGLE_CONTINUED = 1 << 7,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_SINGLE_ENDED = 1 << 8,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_SINGLE = 7 << 6,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_MULTI_STARTED = 1 << 9,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_MULTI_CONTINUED = 1 << 10,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_MULTI_ENDED = 1 << 11,
        TOUCH_INPUT_GESTURE_TYPE_DRAG_MULTI = 7 << 9,
        TOUCH_INPUT_GESTURE_TYPE_PINCH_STARTED = 1 << 12,
        TOUCH_INPUT_GESTURE_TYPE_PINCH_CONTINUED = 1 << 13,
        TOUCH_INPUT_GESTURE_TYPE_PINCH_ENDED = 1 << 14,
        TOUCH_INPUT_GESTURE_TYPE_PINCH = 7 << 12,
        TOUCH_INPUT_GESTURE_TYPE_ROTATION_STARTED = 1 << 15,
        TOUCH_INPUT_GESTURE_TYPE_ROTATION_CONTINUED = 1 << 16,
        TOUCH_INPUT_GESTURE_TYPE_ROTATION_ENDED = 1 << 17,
        TOUCH_INPUT_GESTURE_TYPE_ROTATION = 7 << 15
    };
    Q_ENUM(TouchInputGestureTypes)

    HmiCoreGlobal(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
    ~HmiCoreGlobal() override;
    Q_DISABLE_COPY(HmiCoreGlobal)

    HmiCoreConfigs* configs() const { return mConfigs; }
    ApplicationViewPolicyBase* getApplicationViewPolicy() const { return mApplicationViewPolicy; }

    /// Takes ownership of aPolicy in every case; only the first non-null policy is kept.
    void setApplicationViewPolicy(ApplicationViewPolicyBase* aPolicy);
    /// Ignored for a null pointer or the policy already in use.
    void setPerformanceEventPolicy(const QSharedPointer<PerfEventPolicyBase>& aPolicy);
    /// The tone policy is not owned; the application keeps it alive while it is installed.
    void setTonePolicy(TonePolicyBase* aPolicy);

    bool getChinesePhoneticKeyboardSupport() const;
    bool getChinesePinxinKeyboardSupport() const;
    KeyboardType getKeyboardType() const;
    bool getQtGraphicalEffectsSupport() const;

signals:
    void defaultFontChanged(const QFont& aFont);

public slots:
    void setButtonToneMute(bool aMute);

public:
    Q_INVOKABLE QVariant createQVariantObjectModel(QObject* aObject = nullptr);
    Q_INVOKABLE Hmi::Core::HandleText* createHandleText(const QString& aText, QObject* aParent);
    Q_INVOKABLE Hmi::Core::PerfEventPolicyBase* getPerformanceEventPolicy() const;
    Q_INVOKABLE QString getQmlType(QObject* aObject) const;
    Q_INVOKABLE QRectF getRectIntersected(const QRectF& aRectangle1, const QRectF& aRectangle2) const;
    Q_INVOKABLE int getTouchDoubleClickInterval() const;
    Q_INVOKABLE int getTouchPressAndHoldInterval() const;
    Q_INVOKABLE int getTouchStartDragDistance() const;
    Q_INVOKABLE bool isQmlType(QObject* aObject, const QString& aType) const;
    Q_INVOKABLE void playButtonTone();
    Q_INVOKABLE void playButtonToneInvalid();
    Q_INVOKABLE void setDefaultFont(const QFont& aDefaultFont);
    Q_INVOKABLE void setDefaultFontFamily(const QString& aDefaultFontFamily);
    Q_INVOKABLE void setNewParent(QObject* aChild, QObject* aParent);

private:
    HmiCoreConfigs* mConfigs = nullptr;
    HandleColor* mHandleColorEmpty = nullptr;
    HandleFont* mHandleFontEmpty = nullptr;
    HandleDefaults* mHandleDefaultsEmpty = nullptr;
    HandleImage* mHandleImageEmpty = nullptr;
    HandleRectangle* mHandleRectangleEmpty = nullptr;
    HandleShader* mHandleShaderEmpty = nullptr;
    HandleText* mHandleTextEmpty = nullptr;
    QSharedPointer<PerfEventPolicyBase> mPerformanceEventPolicy;
    ApplicationViewPolicyBase* mApplicationViewPolicy = nullptr;
    QPointer<TonePolicyBase> mTonePolicy;
};

} // namespace Hmi::Core
