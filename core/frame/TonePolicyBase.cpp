#include "frame/TonePolicyBase.h"

namespace Hmi::Core {

TonePolicyBase::TonePolicyBase(QObject* aParent)
    : QObject(aParent)
{
}

TonePolicyBase::~TonePolicyBase() = default;

void TonePolicyBase::playButtonTone()
{
    if (!mMute) {
        playTone(TONE_BUTTON);
    }
}

void TonePolicyBase::playButtonToneInvalid()
{
    if (!mMute) {
        playTone(TONE_BUTTON_INVALID);
    }
}

void TonePolicyBase::setButtonToneMute(bool aMute)
{
    if (mMute == aMute) {
        return;
    }
    mMute = aMute;
    emit buttonToneMuteChanged();
}

void TonePolicyBase::playTone(Tone /*aTone*/) { }

} // namespace Hmi::Core
