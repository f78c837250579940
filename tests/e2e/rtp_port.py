"""An RTP port (and its RTCP neighbour) on 127.0.0.1 that the test watches for packets."""

import socket
import time

from datagrams import receive_before

TELEPHONE_EVENT_END = 0x80


class Packet:
    def __init__(self, data):
        self.data = data
        self.valid = len(data) >= 12 and data[0] >> 6 == 2
        self.payload_type = data[1] & 0x7F if self.valid else None
        self.payload = data[12 + 4 * (data[0] & 0x0F):] if self.valid else b""

    def amr_mode(self):
        """The frame type of the first frame of an octet-aligned AMR payload (RFC 4867)."""
        return self.payload[1] >> 3 & 0x0F if len(self.payload) > 1 else None

    def event(self):
        """(event, end) of a telephone-event payload (RFC 4733)."""
        return self.payload[0], bool(self.payload[1] & TELEPHONE_EVENT_END)


def bind_pair():
    """An even port whose odd neighbour is free too; busy pairs are skipped."""
    for _ in range(50):
        rtp = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        rtp.bind(("127.0.0.1", 0))
        port = rtp.getsockname()[1]
        if port % 2:
            rtp.close()
            continue
        rtcp = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        try:
            rtcp.bind(("127.0.0.1", port + 1))
        except OSError:
            rtp.close()
            rtcp.close()
            continue
        return rtp, rtcp
    raise OSError("no free RTP port pair on 127.0.0.1")


class RtpPort:
    def __init__(self, deadline):
        self.deadline = deadline
        self.socket, self.rtcp = bind_pair()
        self.port = self.socket.getsockname()[1]

    def close(self):
        self.socket.close()
        self.rtcp.close()

    def drain(self):
        self.socket.setblocking(False)
        try:
            while True:
                self.socket.recv(65535)
        except BlockingIOError:
            pass

    def wait(self, accept, timeout):
        """The first packet that accept() takes, or None after timeout."""
        end = min(time.monotonic() + timeout, self.deadline())
        while True:
            received = receive_before(self.socket, end)
            if received is None:
                return None
            packet = Packet(received[0])
            if packet.valid and accept(packet):
                return packet

    def wait_type(self, payload_type, timeout):
        return self.wait(lambda packet: packet.payload_type == payload_type, timeout)

    def quiet(self, payload_type, grace, span):
        """True when no packet of payload_type arrives for span seconds, within grace + span."""
        end = min(time.monotonic() + grace + span, self.deadline())
        last = time.monotonic()
        while time.monotonic() < end:
            if time.monotonic() - last >= span:
                return True
            if self.wait_type(payload_type, min(span, end - time.monotonic())) is not None:
                last = time.monotonic()
        return time.monotonic() - last >= span
