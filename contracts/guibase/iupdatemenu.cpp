// SPDX-License-Identifier: MIT
#include "iupdatemenu.h"

IUpdateMenu::IUpdateMenu() : m_pLife(std::make_shared<IUpdateMenu *>(this)) {}

IUpdateMenu::IUpdateMenu(IUpdateMenu const &) : IUpdateMenu() {}

IUpdateMenu & IUpdateMenu::operator=(IUpdateMenu const &) { return *this; }

IUpdateMenu::~IUpdateMenu() = default;
