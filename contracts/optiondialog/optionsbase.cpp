// SPDX-License-Identifier: MIT
#include "optionsbase.h"

options::IOptions::~IOptions() = default;

options::IValidator::~IValidator() = default;

options::IConfigurable::OptionEditorPage::~OptionEditorPage() = default;

void options::IConfigurable::OptionEditorPage::showOptions(IOptions const &) {}

void options::IConfigurable::OptionEditorPage::takeOptions(IOptions &) {}

void options::IConfigurable::OptionEditorPage::cancel() {}

void options::IConfigurable::OptionEditorPage::restoreDefaults() {}

options::IConfigurable::~IConfigurable() = default;

options::QObjectConfigurableBase::QObjectConfigurableBase(char const * name, QObject * parent) : QObject(parent)
{
    setObjectName(QString::fromLatin1(name));
}

options::QObjectConfigurableBase::~QObjectConfigurableBase() = default;
