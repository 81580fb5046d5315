"""What the programs here have in common that are asked one thing after another: see helper.mjs."""

import json
import sys


def serve(*deeds):
    """Each is asked for by its name, and its answer is what it returns."""
    named = {deed.__name__: deed for deed in deeds}
    for line in sys.stdin:
        request = json.loads(line)
        number = request.pop("number")
        try:
            result = {"answer": named[request.pop("do")](**request)}
        except Exception as error:  # whoever asked shall know
            result = {"error": repr(error)}
        print(json.dumps({"number": number, **result}), flush=True)
