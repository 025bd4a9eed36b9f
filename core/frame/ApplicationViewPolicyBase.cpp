#include "frame/ApplicationViewPolicyBase.h"

namespace Hmi::Core {

ApplicationViewPolicyBase::ApplicationViewPolicyBase(QObject* aParent)
    : QObject(aParent)
{
}

ApplicationViewPolicyBase::~ApplicationViewPolicyBase() = default;

void ApplicationViewPolicyBase::initialize() { }

void ApplicationViewPolicyBase::requestApplicationViewMode(int aMode)
{
    setApplicationViewMode(aMode);
}

void ApplicationViewPolicyBase::setApplicationViewMode(int aMode)
{
    if (mApplicationViewMode == aMode) {
        return;
    }
    mApplicationViewMode = aMode;
    emit applicationViewModeChanged();
}

} // namespace Hmi::Core
