// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "guibasevalues.h"
#include "hotkeylistener.h"
#include "signaltypes.h"

#include <QDir>
#include <QFont>
#include <QTimer>
#include <QUndoStack>

namespace {

constexpr int UndoLimit = 1000; // commands

} // namespace

GuiBase & GuiBase::Instance()
{
    static GuiBase * const instance = new GuiBase; // stays reachable and alive: statics of others may ask it at exit
    return *instance;
}

GuiBase::GuiBase()
    : m_defaultDataDirectory(m_dataDirectory)
    , m_pListener(new HotKeyListener(m_hotKeys, this))
    , m_pValues(std::make_unique<Values>())
{
    connect(m_pListener, &HotKeyListener::signalHotKey, this, &GuiBase::signalHotKey);
    connect(m_pListener, &HotKeyListener::signalEscape, this, &GuiBase::hotkey_ESC_pressed);
}

GuiBase::~GuiBase() = default;

void GuiBase::SetApplication(QApplication * application)
{
    if (m_pApplication)
        m_pApplication->removeEventFilter(m_pListener);
    delete m_pLocalTimeTimer;
    m_pApplication = application;
    if (!application)
        return;
    application->installEventFilter(m_pListener);
    WatchLocalTime(application);
}

bool GuiBase::SetDefaultDataDirectory(QString const & path)
{
    if (path.isEmpty() || !QDir().mkpath(path))
        return false;
    m_dataDirectory = QDir::cleanPath(QDir(path).absolutePath());
    return true;
}

void GuiBase::emit_signalColorsChanged() { Q_EMIT signalColorsChanged(); }

QString const & GuiBase::GetFontFamily()
{
    if (!m_fontFamily.isEmpty())
        return m_fontFamily;
    if (qobject_cast<QApplication *>(QCoreApplication::instance()))
        m_applicationFamily = QApplication::font().family();
    return m_applicationFamily;
}

void GuiBase::SetFontFamily(QString const & family) { m_fontFamily = family; }

QString const & GuiBase::GetWFontFamily() { return m_wideFontFamily.isEmpty() ? GetFontFamily() : m_wideFontFamily; }

void GuiBase::SetWFontFamily(QString const & family) { m_wideFontFamily = family; }

void GuiBase::SetFrequencyResolution(SuffixedDouble::ESuffix resolution)
{
    if (resolution >= SuffixedDouble::eSuffixNone && resolution <= SuffixedDouble::eSuffixGiga)
        m_frequencyResolution = resolution;
}

QString GuiBase::GetSignalType(char type) const
{
    char const letter = type >= 'a' && type <= 'z' ? static_cast<char>(type - 'a' + 'A') : type;
    for (auto const & row : SignalTypes)
        if (row.letter == letter)
            return tr(row.text);
    return {};
}

QUndoStack * GuiBase::UndoStack()
{
    if (!m_pUndoStack) {
        m_pUndoStack = new QUndoStack(this);
        m_pUndoStack->setUndoLimit(UndoLimit);
    }
    return m_pUndoStack;
}
