"""The test's own SIP user agent over UDP on 127.0.0.1: one dialog at a time, INVITE (first and
re-INVITE), ACK and BYE in both directions, bodies given as bytes."""

import random
import re
import socket
import time

from datagrams import receive_before

T1 = 0.5


def token():
    return f"{random.getrandbits(48):012x}"


class Message:
    def __init__(self, data):
        head, _, self.body = data.partition(b"\r\n\r\n")
        lines = head.decode("utf-8", "replace").split("\r\n")
        self.start = lines[0]
        self.headers = []
        for line in lines[1:]:
            name, _, value = line.partition(":")
            self.headers.append((name.strip().lower(), value.strip()))
        self.text = data.decode("utf-8", "replace")

    def header(self, name):
        for key, value in self.headers:
            if key == name:
                return value
        return None

    def all(self, name):
        return [value for key, value in self.headers if key == name]

    @property
    def is_request(self):
        return not self.start.startswith("SIP/2.0")

    @property
    def method(self):
        return self.start.split()[0] if self.is_request else self.header("cseq").split()[1]

    @property
    def status(self):
        return None if self.is_request else int(self.start.split()[1])

    @property
    def cseq(self):
        return int(self.header("cseq").split()[0])

    @property
    def branch(self):
        found = re.search(r";branch=([^;,\s]+)", self.header("via") or "")
        return found.group(1) if found else None


def uri_of(value):
    found = re.search(r"<([^>]+)>", value)
    return found.group(1) if found else value.split(";")[0].strip()


def tag_of(value):
    found = re.search(r";tag=([^;\s]+)", value or "")
    return found.group(1) if found else None


class Dialog:
    def __init__(self, call_id, local_tag, local_uri, remote_uri, remote_target):
        self.call_id = call_id
        self.local_tag = local_tag
        self.remote_tag = None
        self.local_uri = local_uri
        self.remote_uri = remote_uri
        self.remote_target = remote_target
        self.local_cseq = 0


class SipPeer:
    """Talks to one peer at remote (host, port)."""

    def __init__(self, log, deadline):
        self.log = log
        self.deadline = deadline
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind(("127.0.0.1", 0))
        self.port = self.socket.getsockname()[1]
        self.uri = f"sip:rune@127.0.0.1:{self.port}"
        self.remote = None
        self.dialog = None
        self.answered = {}  # INVITE branch -> our final response, sent again on retransmission
        self.acks = {}  # CSeq of our INVITE -> the ACK we sent, sent again on a repeated 200

    def close(self):
        self.socket.close()

    def send(self, data):
        self.log(f">>> to {self.remote[0]}:{self.remote[1]}\n{data.decode('utf-8', 'replace')}")
        self.socket.sendto(data, self.remote)

    def build(self, start, headers, body=b""):
        lines = [start, *headers]
        if body:
            lines.append("Content-Type: application/sdp")
        lines.append(f"Content-Length: {len(body)}")
        return ("\r\n".join(lines) + "\r\n\r\n").encode() + body

    def request(self, method, body=b"", cseq=None):
        dialog = self.dialog
        if cseq is None:
            dialog.local_cseq += 1
            cseq = dialog.local_cseq
        to = f"<{dialog.remote_uri}>" + (f";tag={dialog.remote_tag}" if dialog.remote_tag else "")
        headers = [
            f"Via: SIP/2.0/UDP 127.0.0.1:{self.port};branch=z9hG4bK{token()};rport",
            "Max-Forwards: 70",
            f"From: <{dialog.local_uri}>;tag={dialog.local_tag}",
            f"To: {to}",
            f"Call-ID: {dialog.call_id}",
            f"CSeq: {cseq} {method}",
            f"Contact: <{self.uri}>",
        ]
        data = self.build(f"{method} {dialog.remote_target} SIP/2.0", headers, body)
        self.send(data)
        return data, cseq

    def respond(self, request, status, reason, body=b""):
        to = request.header("to")
        if tag_of(to) is None:
            to += f";tag={self.dialog.local_tag if self.dialog else token()}"
        headers = [f"Via: {via}" for via in request.all("via")]
        headers += [f"From: {request.header('from')}", f"To: {to}",
                    f"Call-ID: {request.header('call-id')}", f"CSeq: {request.header('cseq')}",
                    f"Contact: <{self.uri}>"]
        data = self.build(f"SIP/2.0 {status} {reason}", headers, body)
        self.send(data)
        if request.method == "INVITE" and status >= 200:
            self.answered[request.branch] = data
        return data

    def receive(self, timeout):
        """The next message that is new to the dialog; repeats are answered here."""
        end = min(time.monotonic() + timeout, self.deadline())
        while True:
            received = receive_before(self.socket, end)
            if received is None:
                return None
            data, address = received
            message = Message(data)
            self.log(f"<<< from {address[0]}:{address[1]}\n{message.text}")
            reply = self.earlier_reply(message)
            if reply is None:
                return message
            self.send(reply)

    def earlier_reply(self, message):
        """What we sent for message when it is a repeat: our final response to a repeated
        INVITE, our ACK to a repeated 2xx."""
        if message.is_request:
            return self.answered.get(message.branch) if message.method == "INVITE" else None
        if message.method == "INVITE" and message.status >= 200:
            return self.acks.get(message.cseq)
        return None

    def expect(self, accept, what, timeout=10.0):
        """Waits for the message that accept() takes; other requests get a 200, other
        responses are dropped (100, 180)."""
        end = time.monotonic() + timeout
        while True:
            message = self.receive(end - time.monotonic())
            if message is None:
                raise TimeoutError(f"no {what} within {timeout:.0f} s")
            if accept(message):
                return message
            if message.is_request and message.method not in ("ACK",):
                self.respond(message, 200, "OK")

    # The offering side.

    def start_call(self, remote_uri):
        self.dialog = Dialog(f"{token()}@127.0.0.1", token(), self.uri, remote_uri, remote_uri)
        self.answered.clear()
        self.acks.clear()

    def invite(self, offer, timeout=10.0):
        """Sends the INVITE (first or re-INVITE) and returns the 2xx with its answer, after
        the ACK. Retransmits on T1 until a response arrives."""
        data, cseq = self.request("INVITE", offer)
        end = time.monotonic() + timeout
        interval = T1
        final = None
        while final is None:
            left = end - time.monotonic()
            message = self.receive(min(interval, left) if interval else left)
            if message is None:
                if time.monotonic() >= end:
                    raise TimeoutError(f"no final response to INVITE (CSeq {cseq})")
                if interval is not None:
                    self.send(data)
                    interval = min(interval * 2, 4.0)
                continue
            if message.is_request:
                if message.method != "ACK":
                    self.respond(message, 200, "OK")
                continue
            if message.method != "INVITE" or message.cseq != cseq:
                continue
            interval = None  # a provisional response stops the retransmissions
            if message.status >= 200:
                final = message
        if final.status >= 300:
            raise AssertionError(f"INVITE refused: {final.start}")
        self.dialog.remote_tag = tag_of(final.header("to"))
        if final.header("contact"):
            self.dialog.remote_target = uri_of(final.header("contact"))
        ack, _ = self.request("ACK", cseq=cseq)
        self.acks[cseq] = ack
        return final

    def bye(self, timeout=10.0):
        _, cseq = self.request("BYE")
        self.expect(lambda m: not m.is_request and m.method == "BYE" and m.cseq == cseq,
                    "response to BYE", timeout)
        self.dialog = None

    # The answering side.

    def wait_invite(self, timeout=10.0):
        """An INVITE in a new dialog (then this dialog) or in the current one."""
        message = self.expect(lambda m: m.is_request and m.method == "INVITE", "INVITE", timeout)
        if self.dialog is None or message.header("call-id") != self.dialog.call_id:
            remote = uri_of(message.header("from"))
            self.dialog = Dialog(message.header("call-id"), token(), self.uri, remote,
                                 uri_of(message.header("contact") or remote))
            self.dialog.remote_tag = tag_of(message.header("from"))
            self.answered.clear()
            self.acks.clear()
        self.respond(message, 100, "Trying")
        return message

    def answer(self, invite, body, timeout=10.0):
        """Sends 200 with the answer until the ACK comes."""
        data = self.respond(invite, 200, "OK", body)
        end = time.monotonic() + timeout
        interval = T1
        while True:
            message = self.receive(min(interval, end - time.monotonic()))
            if message is None:
                if time.monotonic() >= end:
                    raise TimeoutError(f"no ACK for our 200 (CSeq {invite.cseq})")
                self.send(data)
                interval = min(interval * 2, 4.0)
                continue
            if message.is_request and message.method == "ACK" and message.cseq == invite.cseq:
                return message
            if message.is_request:
                self.respond(message, 200, "OK")

    def wait_bye(self, timeout=10.0):
        message = self.expect(lambda m: m.is_request and m.method == "BYE", "BYE", timeout)
        self.respond(message, 200, "OK")
        self.dialog = None
