// SPDX-License-Identifier: MIT
#include "azimuthbutton.h"

#include "azimuthdisplayselect.h"
#include "azimuthview.h"
#include "resortpopupmenu.h"

#include <QFontMetrics>

#include <algorithm>

AzimuthButton::AzimuthButton(QWidget * parent) : QToolButton(parent)
{
    setObjectName(QStringLiteral("azimuthMode"));
    setToolTip(tr("How azimuths are shown"));
    setPopupMode(QToolButton::InstantPopup);
    AzimuthDisplaySelect & select = AzimuthDisplaySelect::Instance();
    setMenu(select.CreateMenuForDefaultSelection(this));
    connect(&select, &AzimuthDisplaySelect::signalAzimuthModeChanged, this, &AzimuthButton::ShowMode);
    ShowMode();
}

AzimuthButton::~AzimuthButton() = default;

//! As wide as the longest text needs, so that nothing moves when the mode changes.
QSize AzimuthButton::sizeHint() const
{
    auto const widthOf = [this](QString const & name) {
        return fontMetrics().size(Qt::TextShowMnemonic, name).width(); // as the button itself measures
    };
    int longest = 0;
    for (QAction const * const mode : menu()->actions()) {
        AzimuthView const view{ qobject_cast<ResortPopupMenu *>(menu())->GetItemId(mode), 0.0 };
        longest = std::max(longest, widthOf(view.Name()));
    }
    QSize const present = QToolButton::sizeHint();
    return { present.width() - widthOf(text()) + longest, present.height() };
}

void AzimuthButton::ShowMode()
{
    QString const name = AzimuthView::Current().Name();
    if (name != text())
        setText(name);
}
