#include "Fault.h"

#include <utility>

std::ostream& operator<<(std::ostream& out, const Fault& fault)
{
    return out << fault.name;
}

http::Limits impatient()
{
    http::Limits limits;
    limits.inactivity = std::chrono::milliseconds(500);
    return limits;
}

ScriptedServer::Script endless(std::string beginning, std::string repeated)
{
    return [beginning = std::move(beginning), repeated = std::move(repeated)](ServerConnection& connection) {
        connection.readHead();
        bool isThere = connection.send(beginning);
        while (isThere)
            isThere = connection.send(repeated);
    };
}

ScriptedServer::Script silentAfter(std::string beginning)
{
    return [beginning = std::move(beginning)](ServerConnection& connection) {
        connection.readHead();
        connection.send(beginning);
        connection.waitForEnd();
    };
}

ScriptedServer::Script resetAfter(std::string beginning)
{
    return [beginning = std::move(beginning)](ServerConnection& connection) {
        connection.readHead();
        connection.send(beginning);
        connection.reset();
    };
}
