// SPDX-License-Identifier: MIT
#ifndef ORIM_PROPERTYPAGECONFIGURABLE_H
#define ORIM_PROPERTYPAGECONFIGURABLE_H

#include "optionsbase.h"
#include "orimcontracts_export.h"

#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <vector>

class IHasMultiplePropertyPages;
class IHasPropertyPage;

namespace options::adapters::propertyPage {

class Provider;

//! The options of this adapter: empty, since a settings page takes over its input itself.
class ORIMCONTRACTS_EXPORT Options : public IOptions
{};

//! Shows the settings pages of providers in an options dialog. Applying tells every provider that has a page on the
//! screen to take over its input.
class ORIMCONTRACTS_EXPORT Configurable : public options::Configurable<Options>
{
    Q_OBJECT
public:
    //! \param name         name for programs, Latin-1; null for none.
    //! \param displayName  name for the operator.
    Configurable(char const * name, QString const & displayName, QObject * parent);
    ~Configurable() override;

    //! Adds a provider of one page. It is not owned; one that is a QObject may end first and is then left out, any
    //! other must outlive this. \param path        headings under which the page stands. \param attributes  set as
    //! properties on the page's widget, such as "toolTip" or "enabled". \param ownPath     whether the provider's own
    //! path, parted at its slashes, goes on from there; without it the page
    //!                    stands at \a path itself.
    void add(QStringList const & path, IHasPropertyPage & provider,
             QMap<QString, QVariant> const & attributes = QMap<QString, QVariant>(), bool ownPath = true);
    //! Adds a provider of several pages. One that is a QObject with a slot slotAcceptPropertyChanges() is told to take
    //! over their input; so it is with slotCancelPropertyChanges() and slotDefaultPropertyChanges().
    void add(QStringList const & path, IHasMultiplePropertyPages & provider,
             QMap<QString, QVariant> const & attributes = QMap<QString, QVariant>(), bool ownPath = true);

    QString displayName() const override { return m_displayName; }

    Pages createOptionEditorPages() override;

protected:
    void fetch(Options & options, Intent::Type intent) const override;
    void putInForce(Options const & options, QWidget * parent) override;

private:
    QString m_displayName;
    std::vector<std::shared_ptr<Provider>> m_providers; // shared with their pages
};

} // namespace options::adapters::propertyPage

#endif
