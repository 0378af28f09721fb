#pragma once

#include <QtGlobal>

// While it lives, a start without a usable display ends the program with a sentence on standard error and the status 1;
// Qt itself would abort. Made before the application object and gone once that is there. Main thread.
class DisplayFailure
{
public:
    DisplayFailure();
    DisplayFailure(const DisplayFailure&) = delete;
    DisplayFailure& operator=(const DisplayFailure&) = delete;
    ~DisplayFailure();

private:
    QtMessageHandler m_previous;
};
