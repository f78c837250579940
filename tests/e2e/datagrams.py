"""Waiting for a datagram until a deadline."""

import socket
import time


def receive_before(sock, end):
    """The next datagram and its sender, or None when time.monotonic() reaches end first."""
    left = end - time.monotonic()
    if left <= 0:
        return None
    sock.settimeout(left)
    try:
        return sock.recvfrom(65535)
    except socket.timeout:
        return None
