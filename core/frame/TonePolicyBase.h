#pragma once

#include "hmicore_export.h"

#include <QObject>

namespace Hmi::Core {

/**
 * Plays the key-click tones that buttons ask for through HmiCore.playButtonTone(). The base class
 * only tracks muting; an application derives from it and plays the sounds in playTone().
 */
class HMICORE_EXPORT TonePolicyBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool buttonToneMute READ isButtonToneMute NOTIFY buttonToneMuteChanged)

public:
    enum Tone { TONE_BUTTON, TONE_BUTTON_INVALID };
    Q_ENUM(Tone)

    explicit TonePolicyBase(QObject* aParent = nullptr);
    ~TonePolicyBase() override;
    Q_DISABLE_COPY(TonePolicyBase)

    void playButtonTone();
    void playButtonToneInvalid();
    void setButtonToneMute(bool aMute);
    bool isButtonToneMute() const { return mMute; }

signals:
    void buttonToneMuteChanged();

protected:
    /// Called for every tone while not muted.
    virtual void playTone(Tone aTone);

private:
    bool mMute = false;
};

} // namespace Hmi::Core
