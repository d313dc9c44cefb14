// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGHISTORY_H
#define ORIM_BEARINGHISTORY_H

#include "directionfinder.h"

#include <QObject>

#include <deque>
#include <vector>

//! The single measurements of the last seconds, oldest first. Each bears a running number, so that who shows them can
//! tell what came and what went. Their time goes on with what is added alone: it stands while nothing is measured.
class BearingHistory : public QObject
{
    Q_OBJECT
public:
    static constexpr double Hold = 4.0;       // s, for which a measurement is kept
    static constexpr std::size_t Most = 4096; // measurements

    struct Entry
    {
        BearingMeasurement measurement;
        double time; // s
    };

    explicit BearingHistory(QObject * parent = nullptr);
    ~BearingHistory() override;

    //! Adds measurements, which may be none, and drops those that are older than Hold, and the oldest beyond Most.
    //! \param now  s, of any clock; going back in time forgets what was there, NaN and infinite are ignored.
    void Append(std::vector<BearingMeasurement> const & measurements, double now);

    std::deque<Entry> const & GetEntries() const { return m_entries; }

    //! Running number of the first entry; those that follow count up from it. Never falls.
    quint64 GetFirstNumber() const { return m_first; }

    //! Age of an entry by its part of Hold, 0 to 1.
    double GetAge(Entry const & entry) const;

Q_SIGNALS:
    //! Entries came or went, or are older now.
    void signalChanged();

private:
    void DropFirst();

    std::deque<Entry> m_entries;
    quint64 m_first = 0;
    double m_now = 0.0; // s
};

#endif
