#pragma once

#include <QString>

#include <functional>
#include <vector>

// Which figures a run is to measure: those whose names begin with one of the words on its command line; all without
// any.
class Figures
{
public:
    Figures(int argc, char** argv);

    // Whether any figure may be wanted whose name begins so.
    bool areWanted(const QByteArray& beginning) const;
    // One line of what ./bench prints, if it is wanted.
    void print(const QByteArray& name, double value, const char* unit) const;

private:
    std::vector<QByteArray> m_wanted;
};

double medianOf(std::vector<double> values);
double millisecondsOf(const std::function<void()>& work);
// The processor's time of the calling thread alone: it hardly depends on what else the machine does.
double processorTimeOf(const std::function<void()>& work);

// The times of some work beside those of the floor that no such work can go below: both are measured in turn, and the
// ratio is the median of the rounds' own. It holds on a machine that is busy with other things too, as long as it is
// not so busy that the threads of one reading have to take turns.
class Comparison
{
public:
    void addRound(double floor, double time)
    {
        m_times.push_back(time);
        m_ratios.push_back(time / floor);
    }

    double time() const { return medianOf(m_times); }
    double ratio() const { return medianOf(m_ratios); }

private:
    std::vector<double> m_times;
    std::vector<double> m_ratios;
};
