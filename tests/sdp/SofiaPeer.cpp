#include "SofiaPeer.h"

#include <sofia-sip/soa.h>
#include <sofia-sip/soa_tag.h>
#include <sofia-sip/su.h>
#include <sofia-sip/su_wait.h>

namespace velmora {
namespace testing {

namespace {

const char* const kUserSdp =
    "v=0\r\n"
    "o=peer 1 1 IN IP4 127.0.0.1\r\n"
    "s=-\r\n"
    "c=IN IP4 127.0.0.1\r\n"
    "t=0 0\r\n"
    "m=audio 40000 RTP/AVP 100 101 102\r\n"
    "a=rtpmap:100 AMR-WB/16000\r\n"
    "a=fmtp:100 mode-change-capability=2\r\n"
    "a=rtpmap:101 AMR/8000\r\n"
    "a=rtpmap:102 telephone-event/8000\r\n"
    "a=fmtp:102 0-15\r\n";

// su_init once for the program: Sofia keeps its port state process-wide.
su_root_t* createRoot() {
    static const int initialised = su_init();
    return initialised == 0 ? su_root_create(nullptr) : nullptr;
}

}  // namespace

// Its own o= line, the user's address, and telephone-event kept beside the chosen codec.
SofiaPeer::SofiaPeer() : mRoot(createRoot()), mSoa(soa_create("default", mRoot, nullptr)) {
    soa_set_params(mSoa, SOATAG_USER_SDP_STR(kUserSdp), SOATAG_USER_O_LINE(1),
                   SOATAG_ADDRESS("127.0.0.1"), SOATAG_AUDIO_AUX("telephone-event"), TAG_END());
}

SofiaPeer::~SofiaPeer() {
    soa_destroy(mSoa);
    su_root_destroy(mRoot);
}

void SofiaPeer::hold(const char* media) {
    soa_set_params(mSoa, SOATAG_HOLD(media), TAG_END());
}

std::string SofiaPeer::offer() {
    return soa_generate_offer(mSoa, 1, nullptr) < 0 ? std::string() : localBody();
}

bool SofiaPeer::accept(const std::string& answer) {
    return soa_set_remote_sdp(mSoa, nullptr, answer.data(), static_cast<issize_t>(answer.size())) >=
               0 &&
           soa_process_answer(mSoa, nullptr) >= 0;
}

std::string SofiaPeer::answer(const std::string& offer) {
    if (soa_set_remote_sdp(mSoa, nullptr, offer.data(), static_cast<issize_t>(offer.size())) < 0 ||
        soa_generate_answer(mSoa, nullptr) < 0) {
        return std::string();
    }
    return localBody();
}

int SofiaPeer::audio() const {
    return soa_is_audio_active(mSoa);
}

std::string SofiaPeer::localBody() const {
    const char* body = nullptr;
    isize_t size = 0;
    return soa_get_local_sdp(mSoa, nullptr, &body, &size) > 0 ? std::string(body, size)
                                                              : std::string();
}

}  // namespace testing
}  // namespace velmora
