"""baresip, headless, in a temporary configuration folder: SIP and console on 127.0.0.1, a WAV
file as microphone, automatic answer."""

import math
import os
import re
import signal
import socket
import struct
import subprocess
import time
import wave

MODULE_PATH = "/usr/lib/baresip/modules"
SAMPLE_RATE = 16000


def write_tone(path, seconds):
    """A 440 Hz tone, 16 kHz mono 16-bit: AMR-WB's rate, so nothing resamples it. One second
    holds whole periods, so it repeats without a click."""
    second = b"".join(struct.pack("<h", int(8000 * math.sin(2 * math.pi * 440 * n / SAMPLE_RATE)))
                      for n in range(SAMPLE_RATE))
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(SAMPLE_RATE)
        file.writeframes(second * seconds)


def bindable(port):
    for kind in (socket.SOCK_DGRAM, socket.SOCK_STREAM):
        with socket.socket(socket.AF_INET, kind) as probe:
            try:
                probe.bind(("127.0.0.1", port))
            except OSError:
                return False
    return True


def free_ports(count):
    """count ports in a row, each free for both UDP and TCP on 127.0.0.1 (baresip listens on
    both; for SIP also TLS on the next port); busy ones are skipped."""
    for _ in range(50):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
            probe.bind(("127.0.0.1", 0))
            first = probe.getsockname()[1]
        if first + count <= 65536 and all(bindable(first + n) for n in range(count)):
            return first
    raise OSError("no free port on 127.0.0.1")


# dns_server: a lookup, should baresip ever make one, stays on 127.0.0.1 too.
CONFIG = """\
poll_method		epoll
sip_listen		127.0.0.1:{sip_port}
net_interface		127.0.0.1
dns_server		127.0.0.1:53
audio_path		{folder}
audio_source		aufile,{tone}
audio_player		aubridge,nowhere
audio_alert		aubridge,nowhere
module_path		{module_path}
module			g711.so
module			amr.so
module			aufile.so
module			aubridge.so
module			cons.so
module_tmp		account.so
module_app		menu.so
cons_listen		127.0.0.1:{console_port}
"""


class Baresip:
    def __init__(self, folder, deadline, tone_seconds):
        self.folder = folder
        self.deadline = deadline
        self.tone = os.path.join(folder, "tone.wav")
        write_tone(self.tone, tone_seconds)
        self.log_path = os.path.join(folder, "baresip.log")
        self.process = None
        self.console = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.console.bind(("127.0.0.1", 0))
        self.sip_port = None
        self.console_port = None
        self.user = "baresip"

    @property
    def uri(self):
        return f"sip:{self.user}@127.0.0.1:{self.sip_port}"

    def start(self, attempts=3):
        """Starts baresip; a port taken between the check and baresip's bind means a new pair."""
        for _ in range(attempts):
            self.sip_port, self.console_port = free_ports(2), free_ports(1)
            with open(os.path.join(self.folder, "config"), "w") as file:
                file.write(CONFIG.format(sip_port=self.sip_port, console_port=self.console_port,
                                         folder=self.folder, tone=self.tone,
                                         module_path=MODULE_PATH))
            with open(os.path.join(self.folder, "accounts"), "w") as file:
                file.write(f"<sip:{self.user}@127.0.0.1>;regint=0;answermode=auto\n")
            log = open(self.log_path, "w")
            # stdbuf: line by line into the log, which the test waits on.
            self.process = subprocess.Popen(
                ["stdbuf", "-oL", "-eL", "baresip", "-4", "-s", "-f", self.folder],
                stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT,
                start_new_session=True)
            log.close()
            if self.wait_log(r"baresip is ready\.", 10, fail=r"failed to listen|init failed"):
                return
            self.stop()
        raise RuntimeError("baresip did not start")

    def log_text(self):
        try:
            with open(self.log_path, encoding="utf-8", errors="replace") as file:
                return file.read()
        except OSError:
            return ""

    def wait_log(self, pattern, timeout, start=0, fail=None):
        """The match of pattern in the log after offset start, or None (also when baresip
        ended or fail matched first)."""
        end = min(time.monotonic() + timeout, self.deadline())
        while time.monotonic() < end:
            text = self.log_text()[start:]
            found = re.search(pattern, text)
            if found:
                return found
            if fail and re.search(fail, text):
                return None
            if self.process.poll() is not None:
                return None
            time.sleep(0.05)
        return None

    def log_size(self):
        return len(self.log_text())

    def command(self, text, timeout=5):
        """A console command; returns baresip's reply."""
        self.console.sendto(text.encode() + b"\n", ("127.0.0.1", self.console_port))
        reply = b""
        self.console.settimeout(min(timeout, max(0.1, self.deadline() - time.monotonic())))
        try:
            while True:
                reply += self.console.recv(65535)
                self.console.settimeout(0.2)
        except socket.timeout:
            pass
        return reply.decode("utf-8", "replace")

    def stop(self):
        if self.process is None:
            return
        try:
            os.killpg(self.process.pid, signal.SIGTERM)
            self.process.wait(3)
        except ProcessLookupError:
            pass  # it had ended
        except subprocess.TimeoutExpired:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait(3)
        self.process = None

    def close(self):
        self.stop()
        self.console.close()
