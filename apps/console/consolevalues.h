// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEVALUES_H
#define ORIM_CONSOLEVALUES_H

#include "bearingvalues.h"
#include "linecolumns.h"
#include "valuefollower.h"
#include "windowvalues.h"

#include <QString>

#include <memory>
#include <vector>

//! Paths of the console's values in the tree.
namespace ConsolePaths {

constexpr char const * Centre = "/console/centre";       // Hz, middle of what the panes show
constexpr char const * Span = "/console/span";           // Hz, width of what the panes show
constexpr char const * Start = "/console/start";         // Hz, lower end of what the panes show
constexpr char const * Stop = "/console/stop";           // Hz, upper end
constexpr char const * BandStart = "/console/bandStart"; // Hz, lower end of what the source shows: the default range
constexpr char const * BandStop = "/console/bandStop";   // Hz, upper end
constexpr char const * DeviceStart = "/console/deviceStart"; // Hz, lower end of the widest range
constexpr char const * DeviceStop = "/console/deviceStop";   // Hz, upper end
constexpr char const * LevelMin = "/console/levelMin";       // dBFS
constexpr char const * LevelMax = "/console/levelMax";       // dBFS
constexpr char const * LineRate = "/console/lineRate";       // lines a second
constexpr char const * Speed = "/console/speed";             // times real time
constexpr char const * Averaging = "/console/averaging";     // spectra a line, 0: as many as cover its time
constexpr char const * Bins = "/console/bins";               // selection, the key is the number of levels of a line
constexpr char const * Window = "/console/window";           // selection, the key is a SpectrumEngine::Window
constexpr char const * Gradient = "/console/gradient";       // selection, the key is the index of a level gradient
constexpr char const * Hold = "/console/hold";         // selection, the number is a hold time: s, 0 off, -1 infinite
constexpr char const * Quality = "/console/quality";   // selection, the key is the number of quality steps
constexpr char const * Ageing = "/console/ageing";     // flag: the persistence ages
constexpr char const * TimeZone = "/GuiBase/TimeZone"; // selection, see GuiBase

constexpr char const * Marker1 = "/console/markers/marker1";           // Hz
constexpr char const * Marker2 = "/console/markers/marker2";           // Hz
constexpr char const * LevelMarker = "/console/markers/level";         // dBFS
constexpr char const * Marker1Shown = "/console/markers/marker1Shown"; // flag, as those below
constexpr char const * Marker2Shown = "/console/markers/marker2Shown";
constexpr char const * LevelMarkerShown = "/console/markers/levelShown";

constexpr char const * MarkerLower = "/console/markers/lower"; // Hz, the lower one of the two frequency markers
constexpr char const * MarkerUpper = "/console/markers/upper"; // Hz, the other one

constexpr char const * Time1 = "/console/markers/time1"; // us since 1970, as those below
constexpr char const * Time2 = "/console/markers/time2";
constexpr char const * TimeLower = "/console/markers/earlier"; // the earlier one of the two
constexpr char const * TimeUpper = "/console/markers/later";
constexpr char const * Time1Shown = "/console/markers/time1Shown"; // flag, as the next
constexpr char const * Time2Shown = "/console/markers/time2Shown";

constexpr char const * PersistenceShown = "/console/panes/persistence"; // flag, as those below
constexpr char const * AzimuthShown = "/console/panes/azimuth";
constexpr char const * ElevationShown = "/console/panes/elevation";

constexpr char const * Bearings = "/console/bearings/results";         // list, by rising frequency
constexpr char const * SelectedBearing = "/console/bearings/selected"; // number in that list; -1 for none
constexpr char const * AzimuthMin = "/console/bearings/azimuthMin";    // deg, of the shown range, as those below
constexpr char const * AzimuthMax = "/console/bearings/azimuthMax";
constexpr char const * ElevationMin = "/console/bearings/elevationMin";
constexpr char const * ElevationMax = "/console/bearings/elevationMax";
constexpr char const * Heading = "/console/vehicle/heading"; // deg from north, where the vehicle points to

} // namespace ConsolePaths

//! The values of the console: puts them into the tree and takes them out again. Keeps the level range at least
//! LeastLevelSpan wide, the frequency range and the frequency markers within the band of the source, and the frequency
//! range the same told by centre and span and told by its ends. An end that is set too near the other one, or beyond
//! it, moves that.
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
    static void SetFlag(char const * path, bool on);
    //! Number, key or flag of a value; 0 or false for an unknown path.
    static double Get(char const * path);
    static long GetKey(char const * path);
    static bool GetFlag(char const * path);

private:
    void InsertSelections();
    void InsertPersistence();
    void InsertFlags();
    void LimitLevels();
    void LimitCentre();
    void LimitToBand();
    void TellEnds();
    void TellBand();
    void TakeEnds(bool startMoved);

    FrequencyRange m_band{ 0.0, 1.0 }; // Hz
    bool m_coupling = false;           // the one form of the frequency range is being told by the other
    std::vector<QString> m_paths;      // what was put into the tree
    WindowValues m_windows;
    BearingValues m_bearings;
    ValueFollower m_levelMin;
    ValueFollower m_levelMax;
    ValueFollower m_centre;
    ValueFollower m_span;
    ValueFollower m_start;
    ValueFollower m_stop;
};

#endif
