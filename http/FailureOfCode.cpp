#include "http/FailureOfCode.h"

namespace http {

Failure failureOf(CURLcode code, HeadState head)
{
    switch (code) {
    case CURLE_OK:
        return head == HeadState::Ended ? Failure::None : Failure::NoAnswer;
    case CURLE_URL_MALFORMAT:
        return Failure::BadAddress;
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
        return Failure::Unreachable;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
        return Failure::Untrusted;
    case CURLE_OPERATION_TIMEDOUT:
        return Failure::Silent;
    default:
        return head == HeadState::Ended ? Failure::BrokenBody : Failure::NoAnswer;
    }
}

} // namespace http
