# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests and benchmarks need of the playlist service: starting it, and publishing as the program does."""

import base64
import http.client
import plistlib
import subprocess


def archive(record):
    """The keyed archive of dictionaries, lists, texts, numbers and booleans."""
    objects = ["$null"]
    classes = {}

    def class_of(name):
        if name not in classes:
            classes[name] = plistlib.UID(len(objects))
            objects.append({"$classname": name, "$classes": [name, "NSObject"]})
        return classes[name]

    def add(value):
        place = len(objects)
        objects.append(None)
        if isinstance(value, dict):
            objects[place] = {"NS.keys": [add(key) for key in value], "NS.objects": [add(v) for v in value.values()],
                              "$class": class_of("NSDictionary")}
        elif isinstance(value, list):
            objects[place] = {"NS.objects": [add(v) for v in value], "$class": class_of("NSArray")}
        else:
            objects[place] = value
        return plistlib.UID(place)

    root = add(record)
    return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": root},
                           "$objects": objects}, fmt=plistlib.FMT_BINARY, sort_keys=False)


def form(user, name, tracks, description="", tags="", artists="", hidden=False, identity=None):
    """The body that publishes these tracks."""
    data = base64.b64encode(archive({"Name": name, "Tracks": tracks})).decode()
    text = f"user={user}&name={name}&description={description}&hidden={int(hidden)}&data={data}"
    if identity is not None:
        text += f"&id={identity}"
    if tags:
        text += "&tags=" + tags.replace("&", "^AMP;")
    return (text + "&description=" + f"{description}^1;{artists}".replace("&", "^AMP;")).encode()


class Service:
    """A running service, its data in that folder. Its log goes into the folder as well."""

    def __init__(self, program, folder, *options):
        self._log = open(folder / "log", "ab")
        self.process = subprocess.Popen(
            [program, "serve", "--port", "0", "--data", folder / "data", *options],
            stdout=subprocess.PIPE, stderr=self._log, text=True)
        line = self.process.stdout.readline()
        if not line.startswith("listening http://"):
            raise RuntimeError("the service did not start; see " + self._log.name)
        self.url = line.split()[1]
        self.port = int(self.url.rsplit(":", 1)[1])

    def request(self, method, target, body=None):
        """Status and body."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)
        try:
            connection.request(method, target, body)
            reply = connection.getresponse()
            return reply.status, reply.read()
        finally:
            connection.close()

    def publish(self, *arguments, **named):
        """The path of the page."""
        status, text = self.request("POST", "/playlists/addplaylist.php", form(*arguments, **named))
        words = text.decode().split(" ")
        if status != 200 or words[0] != "OK":
            raise RuntimeError(f"not published: {status} {text.decode()}")
        return f"/playlists/{words[1]}/{words[2]}"

    def end(self):
        """Asks it to stop; its exit status."""
        self.process.terminate()
        status = self.process.wait(60)
        self.process.stdout.close()
        self._log.close()
        return status
