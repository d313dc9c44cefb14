// SPDX-License-Identifier: MIT
#include "persistencecontrols.h"

#include "consolevalues.h"
#include "controlstrip.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QToolButton>

namespace {

QString Text(char const * text) { return QCoreApplication::translate("PersistenceControls", text); }

} // namespace

void AddPersistenceControls(ControlStrip & strip, std::function<void()> const & clear)
{
    QComboBox * const hold =
        strip.AddSelection(QStringLiteral("hold"), Text("Hold"), QLatin1String(ConsolePaths::Hold));
    hold->setToolTip(Text("How long the persistence shows a line"));
    QComboBox * const quality =
        strip.AddSelection(QStringLiteral("quality"), Text("Quality"), QLatin1String(ConsolePaths::Quality));
    quality->setToolTip(Text("Colours of the persistence by the height of a signal over the noise"));
    strip.AddSwitches(Text("Persistence"),
                      { { QStringLiteral("ageing"), Text("Ageing"), QLatin1String(ConsolePaths::Ageing) } });
    auto * const button = new QToolButton(&strip);
    button->setObjectName(QStringLiteral("clearPersistence"));
    button->setText(Text("Clear"));
    button->setToolTip(Text("Clear the persistence"));
    QObject::connect(button, &QToolButton::clicked, button, clear);
    strip.AddControl(QString(), button);
    auto * const ageing = strip.findChild<QWidget *>(QStringLiteral("ageing"));
    strip.EnableWith(QLatin1String(ConsolePaths::PersistenceShown), { hold, quality, ageing, button },
                     Text("The persistence is not shown"));
}
