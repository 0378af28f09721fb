#include "tests/http/TlsIdentity.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <unistd.h>

#include <array>
#include <cstdio>
#include <string_view>

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

constexpr long day = 24L * 60 * 60;

Key makeKey()
{
    return { EVP_EC_gen("P-256"), EVP_PKEY_free };
}

void addExtension(X509* certificate, int kind, const std::string& value)
{
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str());
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

void setName(X509_NAME* name, const std::string& text)
{
    X509_NAME_add_entry_by_txt(
        name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(text.c_str()), -1, -1, 0);
}

Certificate makeCertificate(EVP_PKEY* key, const std::string& name, const std::string& issuer, long validUntil)
{
    Certificate certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), static_cast<long>(name.size()));
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -2 * day);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validUntil);
    X509_set_pubkey(certificate.get(), key);
    setName(X509_get_subject_name(certificate.get()), name);
    setName(X509_get_issuer_name(certificate.get()), issuer);
    return certificate;
}

std::string hostEntry(const std::string& host)
{
    const bool isAddress = host.find_first_not_of("0123456789.") == std::string::npos;
    return (isAddress ? "IP:" : "DNS:") + host;
}

std::string writeToFile(X509* certificate)
{
    std::string path = "/tmp/authorities-XXXXXX";
    FILE* file = fdopen(mkstemp(path.data()), "w");
    PEM_write_X509(file, certificate);
    std::fclose(file);
    return path;
}

// The server's own order of preference: the first of its protocols that the client offers.
int chooseProtocol(SSL* /*tls*/, const unsigned char** chosen, unsigned char* length, const unsigned char* offered,
    unsigned int offeredLength, void* own)
{
    const std::string_view protocols = *static_cast<const std::string_view*>(own);
    unsigned char* found = nullptr;
    const int result = SSL_select_next_proto(&found, length, reinterpret_cast<const unsigned char*>(protocols.data()),
        static_cast<unsigned int>(protocols.size()), offered, offeredLength);
    *chosen = found;
    return result == OPENSSL_NPN_NEGOTIATED ? SSL_TLSEXT_ERR_OK : SSL_TLSEXT_ERR_NOACK;
}

std::string_view& protocolList(TlsCertificate::Protocols protocols)
{
    static std::string_view http1 = "\x08http/1.1";
    static std::string_view http2 = "\x02h2";
    return protocols == TlsCertificate::Protocols::Http2 ? http2 : http1;
}

} // namespace

TlsIdentity::TlsIdentity(const TlsCertificate& told)
    : m_context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free)
{
    const bool signsItself = told.signer == TlsCertificate::Signer::Itself;
    const Key authorityKey = makeKey();
    const Certificate authority = makeCertificate(authorityKey.get(), "Authority", "Authority", day);
    addExtension(authority.get(), NID_basic_constraints, "critical,CA:TRUE");
    X509_sign(authority.get(), authorityKey.get(), EVP_sha256());
    m_authorities = writeToFile(authority.get());

    const Key key = makeKey();
    const long validUntil = told.validity == TlsCertificate::Validity::Expired ? -day : day;
    const Certificate own = makeCertificate(key.get(), "Server", signsItself ? "Server" : "Authority", validUntil);
    addExtension(own.get(), NID_subject_alt_name, hostEntry(told.host));
    X509_sign(own.get(), signsItself ? key.get() : authorityKey.get(), EVP_sha256());
    SSL_CTX_use_certificate(m_context.get(), own.get());
    SSL_CTX_use_PrivateKey(m_context.get(), key.get());
    SSL_CTX_set_alpn_select_cb(m_context.get(), chooseProtocol, &protocolList(told.protocols));
}

TlsIdentity::~TlsIdentity()
{
    unlink(m_authorities.c_str());
}

void TlsIdentity::write(const std::string& keyFile, const std::string& certificateFile) const
{
    FILE* file = std::fopen(keyFile.c_str(), "we");
    PEM_write_PrivateKey(file, SSL_CTX_get0_privatekey(m_context.get()), nullptr, nullptr, 0, nullptr, nullptr);
    std::fclose(file);
    file = std::fopen(certificateFile.c_str(), "we");
    PEM_write_X509(file, SSL_CTX_get0_certificate(m_context.get()));
    std::fclose(file);
}

ssl_st* TlsIdentity::newConnection() const
{
    return SSL_new(m_context.get());
}
