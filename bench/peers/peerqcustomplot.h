// SPDX-License-Identifier: MIT
#ifndef ORIM_PEERQCUSTOMPLOT_H
#define ORIM_PEERQCUSTOMPLOT_H

// QCustomPlot as the benches see it: nothing unless the target OrimPeerQCustomPlot found it, then ORIM_PEER_QCUSTOMPLOT
// is defined. Its header needs the keywords of Qt, which our build turns off.

#ifdef ORIM_PEER_QCUSTOMPLOT
#define emit
#define foreach Q_FOREACH
#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <qcustomplot.h>
#undef emit
#undef foreach
#undef signals
#undef slots
#endif

#endif
