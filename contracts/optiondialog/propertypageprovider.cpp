// SPDX-License-Identifier: MIT
#include "propertypageprovider.h"

#include "ihasmultiplepropertypages.h"
#include "ihaspropertypage.h"

#include <algorithm>

namespace options::adapters::propertyPage {

Provider::Provider(Place place, IHasPropertyPage & provider)
    : m_place(std::move(place))
    , m_pSingle(&provider)
    , m_pObject(dynamic_cast<QObject *>(&provider))
    , m_isObject(m_pObject != nullptr)
{}

Provider::Provider(Place place, IHasMultiplePropertyPages & provider)
    : m_place(std::move(place))
    , m_pMultiple(&provider)
    , m_pObject(dynamic_cast<QObject *>(&provider))
    , m_isObject(m_pObject != nullptr)
{}

std::vector<short> Provider::Ids() const
{
    if (!IsAlive())
        return {};
    return m_pMultiple ? m_pMultiple->GetPropertyPageIds() : std::vector<short>{ 0 };
}

QStringList Provider::Path(short id) const
{
    if (!m_place.ownPath || !IsAlive())
        return m_place.path;
    QString const own = m_pMultiple ? m_pMultiple->GetPropertyPagePath(id) : m_pSingle->GetPropertyPagePath();
    return m_place.path + own.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QWidget * Provider::CreateWidget(short id, QWidget * parent)
{
    if (!IsAlive())
        return nullptr;
    QByteArray const name = Path(id).join(QLatin1Char('/')).toLatin1();
    QWidget * const page = m_pMultiple ? m_pMultiple->GetPropertyPage(id, parent, name.constData())
                                       : m_pSingle->GetPropertyPage(parent, name.constData());
    if (!page)
        return nullptr;
    for (auto attribute = m_place.attributes.cbegin(); attribute != m_place.attributes.cend(); ++attribute)
        page->setProperty(attribute.key().toLatin1().constData(), attribute.value());
    m_pages.erase(std::remove_if(m_pages.begin(), m_pages.end(), [](QPointer<QWidget> const & old) { return !old; }),
                  m_pages.end());
    m_pages.emplace_back(page);
    return page;
}

bool Provider::HasPage() const
{
    return std::any_of(m_pages.begin(), m_pages.end(), [](QPointer<QWidget> const & page) { return !page.isNull(); });
}

void Provider::Tell(void (IHasPropertyPage::*operation)(), char const * slot)
{
    if (!IsAlive() || !HasPage())
        return;
    if (m_pSingle)
        (m_pSingle->*operation)();
    else if (m_pObject && m_pObject->metaObject()->indexOfMethod(slot) >= 0)
        QMetaObject::invokeMethod(m_pObject, QByteArray(slot).chopped(2).constData(), Qt::DirectConnection);
}

void Provider::Accept() { Tell(&IHasPropertyPage::slotAcceptPropertyChanges, "slotAcceptPropertyChanges()"); }

void Provider::Cancel() { Tell(&IHasPropertyPage::slotCancelPropertyChanges, "slotCancelPropertyChanges()"); }

void Provider::RestoreDefaults()
{
    Tell(&IHasPropertyPage::slotDefaultPropertyChanges, "slotDefaultPropertyChanges()");
}

} // namespace options::adapters::propertyPage
