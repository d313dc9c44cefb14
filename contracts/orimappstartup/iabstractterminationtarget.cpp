// SPDX-License-Identifier: MIT
#include "iabstractterminationtarget.h"

#include <QCoreApplication>

namespace {

// Plain pointers: a target may be a static object that ends after every other static of this library.
IAbstractTerminationTarget * youngest = nullptr;
IAbstractTerminationTarget * next = nullptr; // the target to tell after the one that is being told
bool telling = false;
int targets = 0;

class Round
{
public:
    Round()
    {
        telling = true;
        next = youngest;
    }

    Round(Round const &) = delete;
    Round & operator=(Round const &) = delete;

    ~Round()
    {
        telling = false;
        next = nullptr;
    }
};

void FollowApplication()
{
    QCoreApplication * const application = QCoreApplication::instance();
    QObject::connect(application, &QCoreApplication::aboutToQuit, application,
                     &IAbstractTerminationTarget::TerminateAll);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(FollowApplication)

IAbstractTerminationTarget::IAbstractTerminationTarget() : m_pOlder(youngest)
{
    if (youngest)
        youngest->m_pYounger = this;
    youngest = this;
    ++targets;
}

IAbstractTerminationTarget::~IAbstractTerminationTarget()
{
    if (next == this)
        next = m_pOlder;
    if (m_pOlder)
        m_pOlder->m_pYounger = m_pYounger;
    if (m_pYounger)
        m_pYounger->m_pOlder = m_pOlder;
    else
        youngest = m_pOlder;
    --targets;
}

void IAbstractTerminationTarget::aboutToTerminate() {}

void IAbstractTerminationTarget::TerminateAll()
{
    if (telling)
        return;
    Round const round;
    while (next) {
        IAbstractTerminationTarget * const target = next;
        next = target->m_pOlder;
        target->aboutToTerminate();
    }
}

int IAbstractTerminationTarget::GetCount() { return targets; }
