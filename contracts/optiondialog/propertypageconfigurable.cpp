// SPDX-License-Identifier: MIT
#include "propertypageconfigurable.h"

#include "propertypageprovider.h"

namespace options::adapters::propertyPage {

namespace {

//! One settings page of a provider in the dialog.
class Page : public IConfigurable::OptionEditorPage
{
public:
    Page(std::shared_ptr<Provider> provider, short id) : m_pProvider(std::move(provider)), m_id(id) {}

    QStringList path() const override { return m_pProvider->Path(m_id); }

    QWidget * createWidget(QWidget * parent) override { return m_pProvider->CreateWidget(m_id, parent); }

    void cancel() override { m_pProvider->Cancel(); }

    void restoreDefaults() override { m_pProvider->RestoreDefaults(); }

private:
    std::shared_ptr<Provider> m_pProvider;
    short m_id;
};

} // namespace

Configurable::Configurable(char const * name, QString const & displayName, QObject * parent)
    : options::Configurable<Options>(name, parent)
    , m_displayName(displayName)
{}

Configurable::~Configurable() = default;

void Configurable::add(QStringList const & path, IHasPropertyPage & provider,
                       QMap<QString, QVariant> const & attributes, bool ownPath)
{
    m_providers.push_back(std::make_shared<Provider>(Provider::Place{ path, attributes, ownPath }, provider));
}

void Configurable::add(QStringList const & path, IHasMultiplePropertyPages & provider,
                       QMap<QString, QVariant> const & attributes, bool ownPath)
{
    m_providers.push_back(std::make_shared<Provider>(Provider::Place{ path, attributes, ownPath }, provider));
}

IConfigurable::Pages Configurable::createOptionEditorPages()
{
    Pages pages;
    for (auto const & provider : m_providers)
        for (short const id : provider->Ids())
            pages.push_back(std::make_unique<Page>(provider, id));
    return pages;
}

void Configurable::fetch(Options &, Intent::Type) const {}

void Configurable::putInForce(Options const &, QWidget *)
{
    auto const providers = m_providers; // taking over input may add a provider
    for (auto const & provider : providers)
        provider->Accept();
}

} // namespace options::adapters::propertyPage
