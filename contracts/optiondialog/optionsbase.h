// SPDX-License-Identifier: MIT
#ifndef ORIM_OPTIONSBASE_H
#define ORIM_OPTIONSBASE_H

#include "orimcontracts_export.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QWidget;

//! What an options dialog edits, and how its owners take part. An IConfigurable hands out a set of options, the pages
//! that edit it, and a validator; the dialog fills the pages, reads them back, and gives the set to be applied.
namespace options {

//! A set of options of any kind: only its owner knows what is in it.
class ORIMCONTRACTS_EXPORT IOptions
{
public:
    virtual ~IOptions();
};

//! Judges a set of options before it is applied.
class ORIMCONTRACTS_EXPORT IValidator
{
public:
    virtual ~IValidator();

    //! \param reason  receives what is wrong, as the operator reads it; untouched when nothing is. May be null.
    virtual bool validate(IOptions const & options, QString * reason) const = 0;
};

//! What a set of options is fetched for.
struct ORIMCONTRACTS_EXPORT Intent
{
    enum Type : int
    {
        eCurrent = 0, //!< to be edited: as they are in force
        eDefault = 1  //!< to go back to: as they left the factory
    };
};

//! A part of the application that has options.
class ORIMCONTRACTS_EXPORT IConfigurable
{
public:
    //! One page of the dialog: the place it has there, its widget, and the way of the options in and out of it.
    class ORIMCONTRACTS_EXPORT OptionEditorPage
    {
    public:
        virtual ~OptionEditorPage();

        //! Headings and name of the page in the tree of pages.
        virtual QStringList path() const = 0;
        //! The widget, made on each call and owned by \a parent; null when there is none at present.
        virtual QWidget * createWidget(QWidget * parent) = 0;
        //! Shows a set of options. Nothing here.
        virtual void showOptions(IOptions const & options);
        //! Writes the operator's input into a set of options. Nothing here.
        virtual void takeOptions(IOptions & options);
        //! The operator's input is dropped. Nothing here.
        virtual void cancel();
        //! The operator asks for the factory settings of a page that keeps them itself. Nothing here.
        virtual void restoreDefaults();
    };

    using Pages = std::vector<std::unique_ptr<OptionEditorPage>>;

    virtual ~IConfigurable();

    //! Name for programs.
    virtual QString name() const = 0;
    //! Name for the operator.
    virtual QString displayName() const = 0;
    //! A new set of options of the kind that this object knows.
    virtual std::unique_ptr<IOptions> createOptions() const = 0;
    //! Judge of such sets; null when any will do.
    virtual std::unique_ptr<IValidator> createValidator() const = 0;
    //! Fills a set. \return false, and nothing changes, for a set of another kind.
    virtual bool getOptions(IOptions & options, Intent::Type intent) const = 0;
    //! Puts a set in force. \param parent  for dialogs; may be null. \return false, and nothing changes, for a set of
    //! another kind.
    virtual bool applyOptions(IOptions const & options, QWidget * parent) = 0;
    //! The pages, made on each call.
    virtual Pages createOptionEditorPages() = 0;
};

//! A configurable that is a QObject; its name is the object's name.
class ORIMCONTRACTS_EXPORT QObjectConfigurableBase : public QObject, public IConfigurable
{
    Q_OBJECT
public:
    //! \param name  Latin-1; null for none.
    explicit QObjectConfigurableBase(char const * name = nullptr, QObject * parent = nullptr);
    ~QObjectConfigurableBase() override;

    QString name() const override { return objectName(); }

    //! The name, where a class has none for the operator.
    QString displayName() const override { return objectName(); }
};

//! A configurable with options of one type. A class derives from it and tells how they are fetched and put in force.
//! \tparam Options  derives from IOptions, default constructible.
template <class Options>
class Configurable : public QObjectConfigurableBase
{
public:
    using QObjectConfigurableBase::QObjectConfigurableBase;

    std::unique_ptr<IOptions> createOptions() const override { return std::make_unique<Options>(); }

    std::unique_ptr<IValidator> createValidator() const override { return nullptr; }

    bool getOptions(IOptions & options, Intent::Type intent) const override
    {
        auto * const mine = dynamic_cast<Options *>(&options);
        if (mine)
            fetch(*mine, intent);
        return mine != nullptr;
    }

    bool applyOptions(IOptions const & options, QWidget * parent) override
    {
        auto const * const mine = dynamic_cast<Options const *>(&options);
        if (mine)
            putInForce(*mine, parent);
        return mine != nullptr;
    }

    Pages createOptionEditorPages() override { return {}; }

protected:
    virtual void fetch(Options & options, Intent::Type intent) const = 0;
    virtual void putInForce(Options const & options, QWidget * parent) = 0;
};

} // namespace options

#endif
