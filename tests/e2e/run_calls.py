#!/usr/bin/env python3
"""Calls between rune-sdp's bodies and baresip on 127.0.0.1.

usage: run_calls.py RUNE_SDP

1. We offer, baresip answers: accept succeeds, AMR-WB octet-aligned, its RTP reaches us.
2. baresip offers, we answer: the call is established with AMR-WB, its RTP reaches us, DTMF kept.
3. We hold (sendonly) and resume: baresip's RTP stops, then comes back.
4. baresip holds and resumes: our answers say recvonly, then sendrecv.
5. A digit that baresip sends reaches us as a telephone-event.
Every body baresip sends is also read by rune-sdp describe. On failure the SIP messages and
baresip's log are printed."""

import re
import shutil
import signal
import sys
import tempfile
import time
import traceback

from baresip_process import Baresip
from rtp_port import RtpPort
from rune_sdp import RuneSdp
from sip_peer import SipPeer

BUDGET = 50.0  # seconds for the whole run; ctest's limit is above it
RTP_WAIT = 5.0


class Check:
    def __init__(self):
        self.failures = []

    def __call__(self, condition, what):
        print(("ok   " if condition else "FAIL ") + what, flush=True)
        if not condition:
            self.failures.append(what)
        return condition


def origin(body):
    """(session id, version) of the o= line."""
    found = re.search(rb"^o=\S+ (\d+) (\d+) ", body, flags=re.M)
    return (int(found.group(1)), int(found.group(2))) if found else (None, None)


def direction(body):
    found = re.findall(rb"^a=(sendrecv|sendonly|recvonly|inactive)\s*$", body, flags=re.M)
    return found[-1].decode() if found else "sendrecv"


def origins(bodies):
    return ", ".join(f"o= {session} {version}" for session, version in map(origin, bodies))


def counts(bodies):
    """Each body has the first one's o= line, with the version one higher than the last."""
    lines = [re.search(rb"^o=(\S+ \d+) (\d+)( .*?)\r?$", body, flags=re.M) for body in bodies]
    if None in lines:
        return False
    return all(line.group(1, 3) == lines[0].group(1, 3)
               and int(line.group(2)) == int(lines[0].group(2)) + index
               for index, line in enumerate(lines))


def payload_types(stream):
    amr, dtmf = stream.amr(), stream.dtmf()
    return (amr and amr.get("PayloadType"), dtmf and dtmf.get("PayloadType"))


def rtpmap(body, payload_type):
    found = re.search(rb"^a=rtpmap:%d ([^\r\n]*)" % payload_type, body, flags=re.M)
    return found.group(1).decode() if found else None


def chosen(stream):
    """'AMR-WB pt 97, octet-align 1, telephone-event pt 101' from a printed stream."""
    amr = stream.amr()
    if amr is None:
        return "no AMR"
    band = "AMR-WB" if amr.get("BandType", "").startswith("16") else "AMR"
    text = f"{band} pt {amr.get('PayloadType')}, octet-align {amr.get('OctetAlignEnabled')}"
    dtmf = stream.dtmf()
    return text + (f", telephone-event pt {dtmf.get('PayloadType')}" if dtmf else ", no DTMF")


class Calls:
    def __init__(self, tool, folder, check):
        self.start = time.monotonic()
        self.deadline = lambda: self.start + BUDGET
        self.transcript = []
        self.tool = RuneSdp(tool, folder, self.transcript.append)
        self.check = check
        self.baresip = Baresip(folder, self.deadline, tone_seconds=int(BUDGET) + 10)
        self.peer = SipPeer(self.transcript.append, self.deadline)
        self.rtp = []

    def close(self):
        for port in self.rtp:
            port.close()
        self.peer.close()
        self.baresip.close()

    def rtp_port(self):
        port = RtpPort(self.deadline)
        self.rtp.append(port)
        return port

    def described(self, name, body):
        """Every body from baresip goes through describe, which must read it."""
        path = self.tool.keep(name, body)
        done = self.tool.run("describe", path, allowed=(0, 1, 2))
        self.check(done.returncode == 0, f"describe reads baresip's {name}")
        return path

    def part(self, name, steps, *arguments):
        """Runs steps; an exception fails them and lets the next part run."""
        try:
            steps(*arguments)
        except Exception:  # every failure is reported the same way
            self.check(False, f"{name} ended early:\n{traceback.format_exc()}")

    def run(self):
        self.baresip.start()
        self.peer.remote = ("127.0.0.1", self.baresip.sip_port)
        self.part("calls 1 and 3", self.we_offer)
        self.peer.dialog = None  # a call that ended early is left to baresip
        self.part("calls 2, 5 and 4", self.baresip_offers)

    # Calls 1 and 3.
    def we_offer(self):
        check, tool, peer = self.check, self.tool, self.peer
        rtp = self.rtp_port()
        offer, _ = tool.write("offer", "offer1.sdp", "--port", rtp.port)
        peer.start_call(self.baresip.uri)
        response = peer.invite(offer)
        answer = response.body
        answer_path = self.described("answer1.sdp", answer)
        stream = tool.accept(f"{tool.folder}/offer1.sdp", answer_path)
        amr = stream.amr()
        check(amr is not None and amr.get("BandType", "").startswith("16")
              and amr.get("OctetAlignEnabled") == "1",
              f"call 1: accept chose octet-aligned AMR-WB ({chosen(stream)})")
        ours = tool.write("answer", "own-answer1.sdp", "--port", rtp.port,
                          f"{tool.folder}/offer1.sdp")[1]
        if chosen(ours) != chosen(stream):
            print(f"note call 1: for our offer baresip chose {chosen(stream)}; "
                  f"rune-sdp answer chooses {chosen(ours)}")
        payload_type = int(amr["PayloadType"]) if amr else -1
        check(rtp.wait_type(payload_type, RTP_WAIT) is not None,
              f"call 1: RTP with payload type {payload_type} arrives at our port {rtp.port}")
        events = re.findall(rb"^a=rtpmap:(\d+) telephone-event/", answer, flags=re.M)
        dtmf = stream.dtmf()
        check(dtmf is not None and dtmf.get("PayloadType", "").encode() in events,
              f"call 1: the answered telephone-event {[e.decode() for e in events]} "
              f"is in the stream ({chosen(stream)})")
        self.part("call 3", self.we_hold, rtp, offer, payload_type)
        peer.bye()

    def exchange(self, name, offer):
        """Our re-offer sent; baresip's answer, also in a file."""
        answer_body = self.peer.invite(offer).body
        answer_path = self.described(f"{name}-answer.sdp", answer_body)
        return answer_body, answer_path

    # Call 3.
    def we_hold(self, rtp, first_offer, payload_type):
        check, tool, peer = self.check, self.tool, self.peer
        folder = tool.folder
        hold, _ = tool.write("offer", "hold3.sdp", "--our-offer", f"{folder}/offer1.sdp",
                             "--their-answer", f"{folder}/answer1.sdp", "--direction", "sendonly")
        hold_answer, hold_answer_path = self.exchange("hold3", hold)
        check(direction(hold) == "sendonly"
              and direction(hold_answer) in ("recvonly", "inactive"),
              f"call 3: hold offered {direction(hold)}, baresip answered {direction(hold_answer)}")
        tool.accept(f"{folder}/hold3.sdp", hold_answer_path)
        rtp.drain()
        check(rtp.quiet(payload_type, grace=1.5, span=1.0),
              f"call 3: baresip's RTP (pt {payload_type}) stops while we hold")
        resume, _ = tool.write("offer", "resume3.sdp", "--our-offer", f"{folder}/hold3.sdp",
                               "--their-answer", hold_answer_path, "--direction", "sendrecv")
        resume_answer, resume_answer_path = self.exchange("resume3", resume)
        check(direction(resume) == "sendrecv" and direction(resume_answer) == "sendrecv",
              f"call 3: resume offered {direction(resume)}, baresip answered "
              f"{direction(resume_answer)}")
        stream = tool.accept(f"{folder}/resume3.sdp", resume_answer_path)
        amr = stream.amr()
        check(amr is not None and int(amr["PayloadType"]) == payload_type,
              f"call 3: the resumed call keeps AMR pt {payload_type} ({chosen(stream)})")
        check(rtp.wait_type(payload_type, RTP_WAIT) is not None,
              f"call 3: baresip's RTP (pt {payload_type}) comes back after the resume")
        check(counts([first_offer, hold, resume]),
              f"call 3: our re-offers keep o= and count the version "
              f"({origins([first_offer, hold, resume])})")

    # Calls 2, 5 and 4.
    def baresip_offers(self):
        check, tool, peer, baresip = self.check, self.tool, self.peer, self.baresip
        rtp = self.rtp_port()
        mark = baresip.log_size()
        baresip.command(f"/dial {peer.uri}")
        invite = peer.wait_invite()
        offer_path = self.described("offer2.sdp", invite.body)
        answer, stream = tool.write("answer", "answer2.sdp", "--port", rtp.port, offer_path)
        peer.answer(invite, answer)
        amr = stream.amr()
        payload_type = int(amr["PayloadType"]) if amr else -1
        established = baresip.wait_log(r"Call established", 10, start=mark)
        encoder = baresip.wait_log(r"Set audio encoder: (\S+) ", 1, start=mark)
        status = baresip.command("/callstat")
        self.transcript.append(f"baresip /callstat:\n{status}")
        selected = re.search(r"remote formats:\s*(?:.*\n)*?\s*(\d+) (\S+) \(.*\) \*", status)
        check(established is not None and encoder is not None and encoder.group(1) == "AMR-WB"
              and selected is not None
              and selected.groups() == (str(payload_type), "AMR-WB/16000/1"),
              f"call 2: baresip reports the call established with AMR-WB pt {payload_type} "
              f"(encoder {encoder and encoder.group(1)}, "
              f"selected {selected and ' '.join(selected.groups())})")
        check(amr is not None and rtpmap(answer, payload_type) is not None
              and rtpmap(answer, payload_type).startswith("AMR-WB/16000"),
              f"call 2: our answer chose AMR-WB ({chosen(stream)})")
        packet = rtp.wait_type(payload_type, RTP_WAIT)
        check(packet is not None,
              f"call 2: RTP with payload type {payload_type} arrives at our port {rtp.port}")
        if packet is not None:
            print(f"note call 2: baresip sends AMR-WB mode {packet.amr_mode()}")
        dtmf = stream.dtmf()
        event_type = int(dtmf["PayloadType"]) if dtmf else -1
        check(dtmf is not None and (rtpmap(answer, event_type) or "").startswith("telephone-event"),
              f"call 2: our answer keeps telephone-event ({chosen(stream)})")
        # Call 5.
        baresip.command("/sndcode 5")
        packet = rtp.wait(lambda p: p.payload_type == event_type, RTP_WAIT) if dtmf else None
        check(packet is not None and packet.event()[0] == 5,
              f"call 5: digit 5 from baresip arrives as telephone-event pt {event_type}")
        self.part("call 4", self.baresip_holds, offer_path, answer, stream)
        peer.bye()

    def answer_reoffer(self, name, command, their_offer, our_answer):
        """baresip's re-INVITE after a console command, answered as a re-offer."""
        self.baresip.command(command)
        invite = self.peer.wait_invite()
        offer_path = self.described(f"{name}-offer.sdp", invite.body)
        answer, stream = self.tool.write("answer", f"{name}-answer.sdp", "--their-offer",
                                         their_offer, "--our-answer", our_answer, offer_path)
        self.peer.answer(invite, answer)
        return offer_path, answer, stream

    # Call 4.
    def baresip_holds(self, first_offer_path, first_answer, first_stream):
        check, folder = self.check, self.tool.folder
        types = payload_types(first_stream)
        hold_offer, hold, hold_stream = self.answer_reoffer(
            "hold4", "x", first_offer_path, f"{folder}/answer2.sdp")
        check(direction(hold) == "recvonly" and payload_types(hold_stream) == types,
              f"call 4: our answer to baresip's hold says {direction(hold)} with payload types "
              f"{payload_types(hold_stream)} (first answer {types})")
        _, resume, resume_stream = self.answer_reoffer(
            "resume4", "X", hold_offer, f"{folder}/hold4-answer.sdp")
        check(direction(resume) == "sendrecv" and payload_types(resume_stream) == types,
              f"call 4: our answer to baresip's resume says {direction(resume)} with payload "
              f"types {payload_types(resume_stream)} (first answer {types})")
        check(counts([first_answer, hold, resume]),
              f"call 4: our answers keep o= and count the version "
              f"({origins([first_answer, hold, resume])})")


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    if shutil.which("baresip") is None:
        print("baresip is not installed: run tests/e2e/deps.sh", file=sys.stderr)
        return 1
    check = Check()

    def stopped(number, frame):
        check.failures.append("stopped by a signal")
        sys.exit(128 + number)

    # ctest's timeout ends the run through the finally below, which stops baresip.
    signal.signal(signal.SIGTERM, stopped)
    started = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="rune-e2e-") as folder:
        calls = Calls(sys.argv[1], folder, check)
        try:
            calls.run()
        except Exception:  # the harness reports every failure the same way
            check.failures.append("exception")
            traceback.print_exc()
        finally:
            calls.close()
            if check.failures:
                print("\n--- SIP messages and rune-sdp runs ---")
                print("\n".join(calls.transcript))
                print("\n--- baresip log ---")
                print(calls.baresip.log_text())
    print(f"{len(check.failures)} failure(s) in {time.monotonic() - started:.1f} s")
    return 1 if check.failures else 0


if __name__ == "__main__":
    sys.exit(main())
