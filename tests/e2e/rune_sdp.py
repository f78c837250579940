"""Runs the built rune-sdp tool and reads the stream it prints."""

import os
import re
import subprocess


class ToolFailed(Exception):
    pass


class Stream:
    """The negotiated stream as the tool prints it: codec blocks and the check line."""

    def __init__(self, text):
        self.text = text
        self.codecs = []
        for block in re.split(r"^\s*(?=(?:Uplink|Downlink) codec )", text, flags=re.M)[1:]:
            fields = dict(re.findall(r"^\s*(\w+)\s*:\s*(.*?)\s*$", block, flags=re.M))
            self.codecs.append({"link": block.split()[0], **fields})

    def first(self, codec):
        """The codec's fields, the receiving side's when the stream has both (a held stream
        may have only one)."""
        for link in ("Downlink", "Uplink"):
            for fields in self.codecs:
                if fields["link"] == link and fields.get("Codec", "").startswith(codec):
                    return fields
        return None

    def amr(self):
        return self.first("AMR")

    def dtmf(self):
        return self.first("DTMF")


class RuneSdp:
    def __init__(self, path, folder, log):
        self.path = os.path.abspath(path)  # the tool runs in folder
        self.folder = folder
        self.log = log

    def run(self, *arguments, allowed=(0,)):
        command = [self.path, *[str(argument) for argument in arguments]]
        done = subprocess.run(command, capture_output=True, text=True, timeout=20,
                              cwd=self.folder)
        self.log(f"$ {' '.join(command)}  (exit {done.returncode})\n{done.stdout}{done.stderr}")
        if done.returncode not in allowed:
            raise ToolFailed(f"{' '.join(command)} exited {done.returncode}:\n"
                             f"{done.stdout}{done.stderr}")
        return done

    def write(self, command, name, *arguments):
        """offer or answer into folder/name (-o works with every version of the tool)."""
        path = f"{self.folder}/{name}"
        done = self.run(command, "-o", path, *arguments)
        with open(path, "rb") as body:
            return body.read(), Stream(done.stdout + done.stderr)

    def keep(self, name, body):
        path = f"{self.folder}/{name}"
        with open(path, "wb") as file:
            file.write(body)
        return path

    def accept(self, offer, answer):
        return Stream(self.run("accept", offer, answer).stdout)
