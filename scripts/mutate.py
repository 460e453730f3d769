#!/usr/bin/env python3
"""Mutation runner: how many realistic faults does the test suite catch?

Each mutant of the list (scripts/mutants.txt) is one textual change to one source file. For each
one chosen, the runner puts the change in, rebuilds incrementally, runs CTest and puts the file
back, whatever happens: after a pass, a failure, Ctrl-C or SIGTERM. Before it changes a file it
leaves a copy in .mutant/ at the root of the tree; a run killed outright (kill -9) leaves that
copy behind, and the next run ends what that run had started and puts the file back from it
before anything else. One run at a time works on a tree.

    scripts/mutate.py [--build DIR] [--list FILE] [--tests REGEX] [--no-check] [NAME ...]

Without names every mutant of the list runs; a name may be a prefix ("zip-" runs every mutant
whose name starts so). Each mutant ends as one of:
  killed          the build passed and some test failed (the suite caught the fault)
  survived        the build passed and every test passed
  did not build   the change does not compile
  does not apply  its original text is no longer in the file exactly once
"""

import argparse
import fcntl
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

RAIZ = Path(__file__).resolve().parent.parent
CARPETA = RAIZ / ".mutant"
RESPALDO = CARPETA / "backup"
# Every process a run starts carries this in its environment, so that the next run can end what
# a run killed outright left going.
MARCA = f"PANDREL_MUTANT_RUN={RAIZ}"
CAMPOS = ("file", "why", "from", "to")


class Interrumpido(Exception):
    pass


def leer_lista(ruta):
    """The mutants of the list in their order: [name] then file:, why:, from:, to: lines; a line
    that starts with | goes on with the field above it after a line break."""
    mutantes, actual, clave = [], None, None
    for numero, linea in enumerate(ruta.read_text(encoding="utf-8").splitlines(), 1):
        if not linea.strip() or linea.startswith("#"):
            continue
        if linea.startswith("|"):
            if clave is None:
                sys.exit(f"{ruta}:{numero}: a | line goes on with no field")
            actual[clave] += "\n" + linea[1:]
            continue
        clave = None
        if linea.startswith("[") and linea.rstrip().endswith("]"):
            actual = {"name": linea.strip()[1:-1], "line": numero}
            mutantes.append(actual)
            continue
        clave, separador, valor = linea.partition(": ")
        if not separador and linea.endswith(":"):  # an empty text, its blank trimmed by an editor
            clave, separador, valor = linea[:-1], ":", ""
        if actual is None or not separador or clave not in CAMPOS or clave in actual:
            sys.exit(f"{ruta}:{numero}: expected [name] or one of {', '.join(CAMPOS)}")
        actual[clave] = valor
    for mutante in mutantes:
        falta = [campo for campo in CAMPOS if campo not in mutante]
        if falta:
            sys.exit(f"{ruta}:{mutante['line']}: [{mutante['name']}] lacks {', '.join(falta)}")
    nombres = [m["name"] for m in mutantes]
    repetidos = {n for n in nombres if nombres.count(n) > 1}
    if repetidos:
        sys.exit(f"{ruta}: names used twice: {', '.join(sorted(repetidos))}")
    return mutantes


def escribir_respaldo(ruta, contenido):
    """The original of the file about to change: its path on the first line, then its bytes.
    Written beside and renamed, so the backup is whole or absent."""
    temporal = CARPETA / "backup.tmp"
    with open(temporal, "wb") as archivo:
        archivo.write(str(ruta).encode() + b"\n" + contenido)
        archivo.flush()
        os.fsync(archivo.fileno())
    os.replace(temporal, RESPALDO)


def restaurar():
    """Puts back the file a backup holds, if one was left; returns its path."""
    if not RESPALDO.exists():
        return None
    ruta, _, contenido = RESPALDO.read_bytes().partition(b"\n")
    ruta = Path(ruta.decode())
    # A fresh modification time: the build must compile the original again over the mutant.
    temporal = ruta.with_name(ruta.name + ".mutant-restore")
    temporal.write_bytes(contenido)
    os.replace(temporal, ruta)
    RESPALDO.unlink()
    return ruta


class Proceso:
    """One child at a time, in a process group of its own, so that an interruption ends it and
    everything it started (compilers, test programs) before the file is put back."""

    actual = None

    @classmethod
    def correr(cls, orden, salida):
        with open(salida, "ab") as registro:
            entorno = dict(os.environ)
            entorno["PANDREL_MUTANT_RUN"] = str(RAIZ)
            cls.actual = subprocess.Popen(orden, stdout=registro, stderr=subprocess.STDOUT,
                                          start_new_session=True, env=entorno)
            try:
                return cls.actual.wait()
            finally:
                cls.terminar()

    @classmethod
    def terminar(cls):
        proceso, cls.actual = cls.actual, None
        if proceso is None or proceso.poll() is not None:
            return
        os.killpg(proceso.pid, signal.SIGTERM)
        try:
            proceso.wait(timeout=10)
        except subprocess.TimeoutExpired:
            os.killpg(proceso.pid, signal.SIGKILL)
            proceso.wait()


def terminar_restos():
    """Ends the builds and tests that a run killed outright left going over this tree."""
    marca = MARCA.encode()
    for nombre in os.listdir("/proc"):
        if not nombre.isdigit() or int(nombre) == os.getpid():
            continue
        try:
            entorno = Path("/proc", nombre, "environ").read_bytes().split(b"\0")
            if marca in entorno:
                os.kill(int(nombre), signal.SIGKILL)
        except OSError:
            continue


def al_recibir(numero, _marco):
    raise Interrumpido(signal.Signals(numero).name)


def construir(build, registro):
    return Proceso.correr(["nice", "-n", "10", "cmake", "--build", str(build), "-j2"],
                          registro) == 0


def probar(build, pruebas, registro):
    orden = ["nice", "-n", "10", "ctest", "--test-dir", str(build), "-j2", "--timeout", "300",
             "--stop-on-failure", "--output-on-failure"]
    if pruebas:
        orden += ["-R", pruebas]
    return Proceso.correr(orden, registro) == 0


def primera_falla(registro, desde):
    """The name of the first failed test that the run from byte desde reported."""
    with open(registro, "rb") as archivo:
        archivo.seek(desde)
        for linea in archivo.read().decode(errors="replace").splitlines():
            if "***Failed" in linea or "***Timeout" in linea or "***Exception" in linea:
                partes = linea.split()
                return partes[3] if len(partes) > 3 else linea.strip()
    return "?"


def correr_mutante(mutante, build, pruebas, registro):
    ruta = RAIZ / mutante["file"]
    if not ruta.exists():
        return "does not apply", "no such file"
    original = ruta.read_bytes()
    desde, hacia = mutante["from"].encode(), mutante["to"].encode()
    veces = original.count(desde)
    if veces != 1:
        return "does not apply", f"its text is in the file {veces} times"
    escribir_respaldo(ruta, original)
    try:
        ruta.write_bytes(original.replace(desde, hacia))
        with open(registro, "ab") as archivo:
            archivo.write(f"\n==== [{mutante['name']}] {mutante['file']}\n".encode())
        if not construir(build, registro):
            return "did not build", ""
        inicio = registro.stat().st_size
        if probar(build, pruebas, registro):
            return "survived", ""
        return "killed", primera_falla(registro, inicio)
    finally:
        restaurar()


def main():
    opciones = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    opciones.add_argument("nombres", nargs="*", metavar="NAME")
    opciones.add_argument("--build", default=os.environ.get("PANDREL_BUILD", RAIZ / "build"))
    opciones.add_argument("--list", default=RAIZ / "scripts" / "mutants.txt")
    opciones.add_argument("--tests", help="run only the tests matching this CTest regex")
    opciones.add_argument("--no-check", action="store_true",
                          help="skip the run of the unchanged suite, which must pass first")
    args = opciones.parse_args()
    build = Path(args.build).resolve()
    registro = build / "mutants.log"

    for senal in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(senal, al_recibir)
    CARPETA.mkdir(exist_ok=True)
    candado = open(CARPETA / "lock", "w")
    try:
        fcntl.flock(candado, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit("another mutation run works on this tree")
    terminar_restos()
    devuelto = restaurar()
    if devuelto:
        print(f"put back {devuelto.relative_to(RAIZ)} from the run that was interrupted")

    mutantes = leer_lista(Path(args.list))
    if args.nombres:
        elegidos = [m for m in mutantes if any(m["name"].startswith(n) for n in args.nombres)]
        if not elegidos:
            sys.exit("no mutant has such a name")
        mutantes = elegidos

    cuenta = {}
    try:
        registro.write_bytes(b"")
        if not construir(build, registro):
            sys.exit(f"the tree as it is does not build (see {registro})")
        if not args.no_check and not probar(build, args.tests, registro):
            sys.exit(f"the suite fails without any mutant (see {registro})")
        ancho = max(len(m["name"]) for m in mutantes)
        for mutante in mutantes:
            comienzo = time.monotonic()
            estado, detalle = correr_mutante(mutante, build, args.tests, registro)
            cuenta[estado] = cuenta.get(estado, 0) + 1
            segundos = time.monotonic() - comienzo
            detalle = f" ({detalle})" if detalle else ""
            print(f"{mutante['name']:<{ancho}}  {estado}{detalle}  [{segundos:.0f} s]", flush=True)
            if estado == "survived":
                print(f"{'':<{ancho}}  {mutante['why']}", flush=True)
        # The build holds the last mutant until it is built again from the files as they are.
        if not construir(build, registro):
            print(f"the tree as it is did not build again (see {registro})", file=sys.stderr)
    except Interrumpido as interrupcion:
        Proceso.terminar()
        restaurar()
        print(f"stopped by {interrupcion}; every file is as it was (build again before using "
              f"{build.name}/)", file=sys.stderr)
        return 130
    finally:
        Proceso.terminar()
        restaurar()
    total = sum(cuenta.values())
    muertos = cuenta.get("killed", 0)
    corridos = muertos + cuenta.get("survived", 0)
    resumen = ", ".join(f"{cuenta.get(e, 0)} {e}" for e in
                        ("killed", "survived", "did not build", "does not apply"))
    porcentaje = f"; {100 * muertos / corridos:.0f}% of those that ran killed" if corridos else ""
    print(f"{total} mutants: {resumen}{porcentaje}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
