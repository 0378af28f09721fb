#pragma once

#include <QByteArray>
#include <QString>

// What an installation by somebody who is not root needs.
struct AdministratorPrograms
{
    QString pkexecPath;
    // Vesk's own, which pkexec starts as root; see privileged/install_package.cpp.
    QString helperPath;

    // The real ones for an ordinary user; where either is missing, dpkg is left to fail. None of them for root, who
    // runs dpkg himself.
    static AdministratorPrograms system();
    bool arePresent() const;
};

// Has archives installed as root with the administrator's consent. One object serves one run of the queue, on one
// thread.
class AdministratorInstall
{
public:
    explicit AdministratorInstall(AdministratorPrograms programs);

    // Asks for the archive at the path and waits, for a password too. The digest is the SHA-256 of what was downloaded,
    // in hexadecimal digits: the helper installs nothing else, whatever the path leads to by then. True when dpkg
    // succeeded. Once the administrator has refused, or nobody could be asked, it is false for the rest of the run
    // without asking.
    bool install(const QString& path, const QByteArray& digest);

private:
    AdministratorPrograms m_programs;
    bool m_isRefused = false;
};
