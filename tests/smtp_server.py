"""A real mail server that keeps its mails as files in a folder, until its standard input ends.

    smtp_server.py FOLDER [tls|relayed]

Its address is in the file "address" of the folder; each mail is a file of its own there, which
holds a line each for envelope and headers, an empty line and the decoded body. With "tls" it
offers a certificate that nobody can verify; "relayed" puts an OpenSMTPD in front of it.
"""
import asyncio
import email
import email.policy
import logging
import pathlib
import socket
import ssl
import subprocess
import sys

from aiosmtpd.smtp import SMTP

logging.disable()
folder = pathlib.Path(sys.argv[1])
kind = sys.argv[2] if len(sys.argv) > 2 else "plain"
count = 0


def put(name, content):
    (folder / "new").write_bytes(content)
    (folder / "new").rename(folder / name)


class Keeper:
    async def handle_DATA(self, server, session, envelope):
        global count
        count += 1
        mail = email.message_from_bytes(envelope.content, policy=email.policy.default)
        names = [f"{a.display_name}={a.addr_spec}" for h in ("From", "To") for a in mail[h].addresses]
        lines = [envelope.mail_from, *envelope.rcpt_tos, *names, mail["Subject"],
                 mail.get_content_type() + " " + mail.get_content_charset(),
                 "dated" if mail["Date"].datetime and "@" in mail["Message-ID"] else "",
                 "tls" if session.ssl else "plain"]
        put(f"mail{count}", "\n".join(lines).encode() + b"\n\n" + mail.get_payload(decode=True))
        return "250 kept"


def certificate():
    file = folder / "certificate"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ed25519", "-nodes", "-subj",
                    "/CN=localhost", "-keyout", file, "-out", file], check=True, capture_output=True)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(file)
    return context


def relay(port):
    """Starts an OpenSMTPD that hands every mail on to the port, and returns it with its own."""
    with socket.create_server(("127.0.0.1", 0)) as free:
        own = free.getsockname()[1]
    (folder / "smtpd.conf").write_text(
        f'listen on 127.0.0.1 port {own}\n'
        f'action "on" relay host smtp://127.0.0.1:{port}\n'
        f'match from any for any action "on"\n')
    process = subprocess.Popen(["smtpd", "-d", "-f", folder / "smtpd.conf"],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while process.poll() is None:
        try:
            socket.create_connection(("127.0.0.1", own)).close()
            return process, own
        except ConnectionRefusedError:
            pass
    sys.exit("smtpd does not start")


async def serve():
    context = certificate() if kind == "tls" else None
    server = await asyncio.get_running_loop().create_server(
        lambda: SMTP(Keeper(), hostname="test", tls_context=context), "127.0.0.1", 0)
    port = server.sockets[0].getsockname()[1]
    process, port = await asyncio.to_thread(relay, port) if kind == "relayed" else (None, port)
    put("address", f"127.0.0.1:{port}".encode())
    await asyncio.to_thread(sys.stdin.read)
    if process:
        process.terminate()
        process.wait()

asyncio.run(serve())
