// Sofia-SIP's offer/answer engine (soa, "default" backend) as the other side of a call: a second
// implementation that reads what we write and writes what we must read. Host test builds only.
#ifndef VELMORA_TESTS_SDP_SOFIA_PEER_H
#define VELMORA_TESTS_SDP_SOFIA_PEER_H

#include <velmora/rune/StreamConfig.h>

#include <string>

struct soa_session;
struct su_root_s;

namespace velmora {
namespace testing {

// A softphone's user SDP: AMR-WB, AMR and telephone-event at 8000 Hz only, at 127.0.0.1:40000.
// Each call drives soa synchronously; a text soa refuses comes back empty or false.
class SofiaPeer {
  public:
    SofiaPeer();
    ~SofiaPeer();
    SofiaPeer(const SofiaPeer&) = delete;
    SofiaPeer& operator=(const SofiaPeer&) = delete;

    // SOATAG_HOLD for what it sends from now on: "audio" holds (a=sendonly), "#" holds every
    // stream inactive, "" resumes.
    void hold(const char* media);
    // Its offer, or its re-offer after an agreed exchange.
    std::string offer();
    // The answer to its outstanding offer, as soa_set_remote_sdp and soa_process_answer take it.
    bool accept(const std::string& answer);
    // Its answer to offer.
    std::string answer(const std::string& offer);
    // The audio stream as soa sees it after the last exchange (soa_is_audio_active, whose values
    // are those of StreamConfig::Direction; negative when rejected).
    int audio() const;

  private:
    std::string localBody() const;

    su_root_s* mRoot;
    soa_session* mSoa;
};

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_SDP_SOFIA_PEER_H
