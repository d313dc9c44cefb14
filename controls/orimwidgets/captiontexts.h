// SPDX-License-Identifier: MIT
#ifndef ORIM_CAPTIONTEXTS_H
#define ORIM_CAPTIONTEXTS_H

#include <QString>

//! Texts of captions that are translated once, when the library is loaded. Before an application object exists they are
//! in English, and stay so.
namespace CaptionTexts {

QString const & Pause();
QString const & Resume();

} // namespace CaptionTexts

#endif
