#!/usr/bin/env python3
"""A crash upload endpoint for the tests, on 127.0.0.1 and a free port.

usage: upload_server.py DIR

Prints its port on stdout, then serves until stdin closes. POST /ok answers
200 with "report-N"; POST /fail answers 500. Every request's form is saved
as DIR/request-N: one "field NAME=VALUE" line per plain field and one
"file NAME FILENAME SIZE FIRST4BYTES" line per file part.
"""
import email.parser
import email.policy
import http.server
import os
import sys
import threading


class Handler(http.server.BaseHTTPRequestHandler):
    count = 0

    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
        head = f"Content-Type: {self.headers['Content-Type']}\r\n\r\n".encode()
        form = email.parser.BytesParser(policy=email.policy.HTTP).parsebytes(head + body)
        Handler.count += 1
        lines = []
        for part in form.iter_parts():
            name = part.get_param("name", header="content-disposition")
            data = part.get_payload(decode=True)
            if part.get_filename():
                lines.append(f"file {name} {part.get_filename()} {len(data)} {data[:4].decode('latin-1')}")
            else:
                lines.append(f"field {name}={data.decode()}")
        with open(os.path.join(sys.argv[1], f"request-{Handler.count}"), "w") as f:
            f.write("\n".join(lines) + "\n")
        ok = self.path == "/ok"
        answer = f"report-{Handler.count}\n".encode() if ok else b"no\n"
        self.send_response(200 if ok else 500)
        self.send_header("Content-Length", str(len(answer)))
        self.end_headers()
        self.wfile.write(answer)

    def log_message(self, *args):
        pass


server = http.server.HTTPServer(("127.0.0.1", 0), Handler)
print(server.server_address[1], flush=True)
threading.Thread(target=server.serve_forever, daemon=True).start()
sys.stdin.read()
