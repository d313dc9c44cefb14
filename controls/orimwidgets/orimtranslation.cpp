// SPDX-License-Identifier: MIT
#include "captiontexts.h"

#include "translationcenter.h"

#include <QCoreApplication>

//! Of a static library nobody else asks for them. Outside any namespace, as Qt wants it.
static int RegisterResources()
{
    Q_INIT_RESOURCE(orimwidgets);
    return 0;
}

namespace {

[[maybe_unused]] int const resources = RegisterResources();

//! Registers the translation of the library when it is loaded, and takes it back when it is unloaded.
class Registration
{
public:
    Registration() { TranslationCenter::Instance()->Register(Name()); }

    Registration(Registration const &) = delete;
    Registration & operator=(Registration const &) = delete;

    ~Registration() { TranslationCenter::Instance()->Unregister(Name()); }

private:
    //! In memory of its own: what is in the library's goes with it.
    static QString Name() { return QString::fromLatin1("OrimWidgets"); }
};

Registration const registration;

// behind the registration, which loads the translation
QString const pause = QCoreApplication::translate("VCCaption", "Pause");
QString const resume = QCoreApplication::translate("VCCaption", "Resume");

} // namespace

QString const & CaptionTexts::Pause() { return pause; }

QString const & CaptionTexts::Resume() { return resume; }
