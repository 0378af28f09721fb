// Downloads over TLS, from a server with a certificate of the test's own.
#include "actions/PackageDownload.h"
#include "tests/support/LoopbackServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace {

QByteArray contents(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Answers whatever it is asked with the same bytes.
class SecureServer : public QSslServer
{
public:
    explicit SecureServer(const QString& directory)
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(QSslCertificate(contents(directory + QStringLiteral("/certificate"))));
        configuration.setPrivateKey(QSslKey(contents(directory + QStringLiteral("/key")), QSsl::Ec));
        configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
        setSslConfiguration(configuration);
        connect(this, &QTcpServer::pendingConnectionAvailable, this, &SecureServer::serve);
        listen(QHostAddress::LocalHost, 0);
    }

    QString url() const { return QStringLiteral("https://127.0.0.1:%1/").arg(serverPort()); }
    void answerWith(const QByteArray& bytes) { m_answer = bytes; }

private:
    void serve()
    {
        while (QTcpSocket* const socket = nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                socket->readAll();
                socket->write(m_answer);
                socket->disconnectFromHost();
            });
        }
    }

    QByteArray m_answer;
};

class SecureDownload : public testing::Test
{
protected:
    // The client's loop and the server's are one: the download blocks in an event loop of its own, which serves both.
    void SetUp() override
    {
        ASSERT_TRUE(QSslSocket::supportsSsl());
        const QStringList arguments
            = QStringLiteral("req -x509 -nodes -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -days 2 -subj /CN=test "
                             "-addext subjectAltName=IP:127.0.0.1 -keyout key -out certificate")
                  .split(u' ');
        QProcess openssl;
        openssl.setWorkingDirectory(m_parent.path());
        openssl.start(QStringLiteral("openssl"), arguments);
        ASSERT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0) << "The program openssl is needed.";
        m_server = std::make_unique<SecureServer>(m_parent.path());
        ASSERT_TRUE(m_server->isListening());
    }

    void TearDown() override
    {
        QSslConfiguration::setDefaultConfiguration(m_previous);
        waitForTheNetworkThreads();
    }

    void trustTheServer()
    {
        QSslConfiguration configuration = m_previous;
        configuration.addCaCertificate(QSslCertificate(contents(m_parent.filePath(QStringLiteral("certificate")))));
        QSslConfiguration::setDefaultConfiguration(configuration);
    }

    QString download(const QString& source)
    {
        auto package = std::make_shared<VeskPackage>();
        package->setRepository(VeskRepository::repositoryWithURLString(source, {}));
        package->setPackageID(QStringLiteral("one"));
        package->setVersion(QStringLiteral("1"));
        return PackageDownload({ m_parent.filePath(QStringLiteral("archives")) }, {}).download(package, {});
    }

    void answerWithBody() { m_server->answerWith("HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n" + m_body); }

    void answerWithRedirect(const QString& target)
    {
        m_server->answerWith("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + target.toUtf8() + "\r\n\r\n");
    }

    // A network access manager does not wait for its thread. A process that ends meanwhile cuts short what TLS frees
    // with the thread, which then looks like a leak.
    void waitForTheNetworkThreads() const
    {
        for (QDeadlineTimer deadline(10000); threadCount() > m_threadsBefore && !deadline.hasExpired();)
            QThread::msleep(1);
        EXPECT_LE(threadCount(), m_threadsBefore);
    }

    static qsizetype threadCount()
    {
        return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    }

    const QByteArray m_path = "/debs/one_1_iphoneos-arm.deb";
    const QByteArray m_body = QByteArray(5000, 's');
    const QSslConfiguration m_previous = QSslConfiguration::defaultConfiguration();
    QTemporaryDir m_parent;
    LoopbackServer m_plainServer;
    const qsizetype m_threadsBefore = threadCount();
    std::unique_ptr<SecureServer> m_server;
};

} // namespace

TEST_F(SecureDownload, acceptsAServerWithATrustedCertificate)
{
    trustTheServer();
    answerWithBody();
    EXPECT_EQ(contents(download(m_server->url())), m_body);
}

TEST_F(SecureDownload, refusesAServerWithAnUnknownCertificate)
{
    answerWithBody();
    EXPECT_TRUE(download(m_server->url()).isNull());
}

TEST_F(SecureDownload, followsARedirectToASecureServer)
{
    trustTheServer();
    answerWithBody();
    m_plainServer.redirect(m_path, m_server->url().toUtf8() + "archive");
    EXPECT_EQ(contents(download(m_plainServer.url())), m_body);
}

TEST_F(SecureDownload, followsNoRedirectFromASecureServerToAnOpenOne)
{
    trustTheServer();
    m_plainServer.serve("/archive", m_body);
    answerWithRedirect(m_plainServer.url(QStringLiteral("/archive")));
    EXPECT_TRUE(download(m_server->url()).isNull());
    EXPECT_TRUE(m_plainServer.requests().empty());
}
