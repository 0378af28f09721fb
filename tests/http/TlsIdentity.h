#pragma once

#include <memory>
#include <string>

struct evp_pkey_st;
struct ssl_ctx_st;
struct ssl_st;
struct x509_st;

// What a certificate of the tests says.
struct TlsCertificate
{
    // An address or a name.
    std::string host = "127.0.0.1";
    enum class Validity { Now, Expired } validity = Validity::Now;
    enum class Signer { Authority, Itself } signer = Signer::Authority;
    // Which protocols the server speaks.
    enum class Protocols { Http1, Http2 } protocols = Protocols::Http1;
};

// A server's certificate and key, signed by an authority that is made for it alone.
class TlsIdentity
{
public:
    explicit TlsIdentity(const TlsCertificate& certificate = {});
    ~TlsIdentity();
    TlsIdentity(const TlsIdentity&) = delete;
    TlsIdentity& operator=(const TlsIdentity&) = delete;

    // The file with the authority's certificate.
    const std::string& authorities() const { return m_authorities; }
    // For a server that is a program of its own.
    void write(const std::string& keyFile, const std::string& certificateFile) const;
    // For a connection that was accepted; the caller frees it.
    ssl_st* newConnection() const;

private:
    std::string m_authorities;
    std::shared_ptr<ssl_ctx_st> m_context;
};
