// SPDX-License-Identifier: MIT
#ifndef ORIM_PROPERTYPAGEPROVIDER_H
#define ORIM_PROPERTYPAGEPROVIDER_H

#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <vector>

class IHasMultiplePropertyPages;
class IHasPropertyPage;

namespace options::adapters::propertyPage {

//! A provider of one or several settings pages, with its place in the dialog. It knows whether the provider still lives
//! and which of its pages are on the screen.
class Provider
{
public:
    struct Place
    {
        QStringList path;
        QMap<QString, QVariant> attributes;
        bool ownPath;
    };

    Provider(Place place, IHasPropertyPage & provider);
    Provider(Place place, IHasMultiplePropertyPages & provider);

    //! Numbers of the pages; one zero for a provider of one page; none once the provider has ended.
    std::vector<short> Ids() const;
    //! Where a page stands.
    QStringList Path(short id) const;
    //! A new page; null when the provider has ended or gives none.
    QWidget * CreateWidget(short id, QWidget * parent);

    //! Tells a provider that has a page on the screen.
    void Accept();
    void Cancel();
    void RestoreDefaults();

private:
    bool IsAlive() const { return !m_isObject || m_pObject; }

    bool HasPage() const;
    void Tell(void (IHasPropertyPage::*operation)(), char const * slot);

    Place m_place;
    IHasPropertyPage * m_pSingle = nullptr;            // borrowed
    IHasMultiplePropertyPages * m_pMultiple = nullptr; // borrowed
    QPointer<QObject> m_pObject;                       // the provider, when it is a QObject
    bool m_isObject;
    std::vector<QPointer<QWidget>> m_pages;
};

} // namespace options::adapters::propertyPage

#endif
