// The dialog a body of offer or answer belongs to: a first exchange, or the one the exchange
// files restore.
#include "Command.h"
#include "DefaultCapabilities.h"

#include <iostream>

namespace velmora {
namespace rune {
namespace tools {

namespace {

// Where the body this side sent receives: read as the peer reads it.
bool readLocalEnd(const std::string& sent, std::string& address, int& port) {
    StreamConfig stream;
    std::vector<sdp::SkippedFormat> skipped;
    if (sdp::readRemoteDescription(sent, stream, skipped).isFailure()) {
        return false;
    }
    address = stream.getRemoteIp();
    port = stream.getRemoteRtpPort();
    return true;
}

}  // namespace

int joinDialog(const BodyOptions& options, sdp::Session& session) {
    const bool offered = !options.ourOffer.empty();
    const bool restoring = offered || !options.theirOffer.empty();
    std::string offer;
    std::string answer;
    if (restoring && (!readInput(offered ? options.ourOffer : options.theirOffer, offer) ||
                      !readInput(offered ? options.theirAnswer : options.ourAnswer, answer))) {
        return kUsageStatus;
    }
    sdp::Result result = sdp::Result::success();
    if (restoring) {
        result = sdp::Session::restore(defaultCapabilities(), offer, answer,
                                       offered ? sdp::Role::Offerer : sdp::Role::Answerer, session);
    }
    std::string address = options.address;
    int port = options.port;
    if (result.isSuccess() && restoring && (options.addressGiven || options.portGiven) &&
        readLocalEnd(offered ? offer : answer, address, port)) {
        result = session.setLocalEndpoint(options.addressGiven ? options.address : address,
                                          options.portGiven ? options.port : port);
    }
    if (result.isSuccess()) {
        result = session.setLocalDirection(options.direction);
    }
    if (result.isSuccess()) {
        result = session.setQosStatus(options.qosStatus);
    }
    if (result.isSuccess()) {
        result = session.setQosStrength(options.qosStrength);
    }
    if (result.isFailure()) {
        printResult(std::cerr, result);
        return kFailureStatus;
    }
    return -1;
}

}  // namespace tools
}  // namespace rune
}  // namespace velmora
