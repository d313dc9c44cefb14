// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEVALUES_H
#define ORIM_CONSOLEVALUES_H

#include "linecolumns.h"
#include "valuefollower.h"

#include <QString>

#include <memory>
#include <vector>

//! Paths of the console's values in the tree.
namespace ConsolePaths {

constexpr char const * Centre = "/console/centre";       // Hz, middle of what the panes show
constexpr char const * Span = "/console/span";           // Hz, width of what the panes show
constexpr char const * LevelMin = "/console/levelMin";   // dBFS
constexpr char const * LevelMax = "/console/levelMax";   // dBFS
constexpr char const * LineRate = "/console/lineRate";   // lines a second
constexpr char const * Speed = "/console/speed";         // times real time
constexpr char const * Averaging = "/console/averaging"; // spectra a line, 0: as many as cover its time
constexpr char const * Bins = "/console/bins";           // selection, the key is the number of levels of a line
constexpr char const * Window = "/console/window";       // selection, the key is a SpectrumEngine::Window
constexpr char const * Gradient = "/console/gradient";   // selection, the key is the index of a level gradient

} // namespace ConsolePaths

//! The values of the console: puts them into the tree and takes them out again. Keeps the level range at least
//! LeastLevelSpan wide and the frequency range within the band of the source.
class ConsoleValues
{
public:
    static constexpr double LeastLevelSpan = 1.0; // dB
    static constexpr double MostZoom = 1000.0;    // the band shown as so many times its width

    //! Puts the values into the tree with their start values: -120 to 0 dBFS, 25 lines/s, 2048 levels.
    ConsoleValues();
    ~ConsoleValues();
    ConsoleValues(ConsoleValues const &) = delete;
    ConsoleValues & operator=(ConsoleValues const &) = delete;

    //! Takes over the band that the source shows. A view of the whole band stays one; another one stays as far as the
    //! band holds it. What is not finite or not wider than 0 is ignored.
    void SetBand(FrequencyRange band);

    FrequencyRange const & GetBand() const { return m_band; }

    //! Sets the level range, dBFS. Ignored unless \a max is at least LeastLevelSpan above \a min.
    void SetLevels(double min, double max);

    //! Sets a value by its path. Limits win; an unknown path is ignored.
    static void Set(char const * path, double number);
    static void Select(char const * path, long key);
    //! Number or key of a value; 0 for an unknown path.
    static double Get(char const * path);
    static long GetKey(char const * path);

private:
    void InsertSelections();
    void LimitLevels();
    void LimitCentre();

    FrequencyRange m_band{ 0.0, 1.0 }; // Hz
    std::vector<QString> m_paths;      // what was put into the tree
    ValueFollower m_levelMin;
    ValueFollower m_levelMax;
    ValueFollower m_span;
};

#endif
