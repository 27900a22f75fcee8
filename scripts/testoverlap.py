#!/usr/bin/env python3
"""Which test cases overlap: what each one alone kills or runs, to find tests to fold.

    testoverlap.py run OUT BINARY...      gtest binaries once, their results kept as OUT/<n>.*.json
    testoverlap.py kills OUT...           which test cases failed on which call: a kill matrix
    testoverlap.py lines BUILD BINARY...  product lines each test case runs (a --coverage build)

`run` is the test command of a mutation run, so that every mutant leaves which test cases it
failed (call 0 is the check before any mutant):

    python3 ../shared/tools/mutate.py screens/desktop/FrmBureaublad.cpp --max 40 \\
        --build "cmake --build build --target tk_desktop_tests" \\
        --test "scripts/testoverlap.py run /tmp/km/bureaublad build/tests/desktop/tk_desktop_tests"
    scripts/testoverlap.py kills /tmp/km/bureaublad

`kills` prints a smallest set of test cases that kills every mutant any of them kills (greedy),
with how many each kills and how many only it kills, then the others. A crash loses a binary's
JSON: such a kill is listed as not attributed. `lines` runs each test case alone and prints, per
test case, how many product lines it runs and how many no other test case of those binaries runs.
A test case outside the set, with no line of its own, is a candidate to fold, not a verdict: it
may still be the only one to check what it runs, and a larger sample of mutants decides.
"""
import collections, glob, json, os, subprocess, sys


def run(out, binaries):
    os.makedirs(out, exist_ok=True)
    counter = os.path.join(out, 'count')
    n = int(open(counter).read()) if os.path.exists(counter) else 0
    open(counter, 'w').write(str(n + 1))
    rc = 0
    for i, b in enumerate(binaries):
        r = subprocess.run(['timeout', '300', b, '--gtest_brief=1',
                            f'--gtest_output=json:{out}/{n}.{i}.json'],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        rc = rc or r.returncode
    open(os.path.join(out, f'{n}.rc'), 'w').write(str(rc))
    return rc


def failed_cases(files):
    names, failed = set(), set()
    for f in files:
        try:
            doc = json.load(open(f))
        except (OSError, ValueError):
            continue
        for suite in doc['testsuites']:
            for case in suite['testsuite']:
                name = suite['name'] + '.' + case['name']
                names.add(name)
                if case.get('failures'):
                    failed.add(name)
    return names, failed


def kills(outs):
    killed_by = collections.defaultdict(set)
    every, attributed, lost = set(), set(), []
    for out in outs:
        for rc_file in glob.glob(os.path.join(out, '*.rc')):
            n = int(os.path.basename(rc_file)[:-3])
            if n == 0:
                continue
            mutant = f'{out}:{n}'
            names, failed = failed_cases(glob.glob(os.path.join(out, f'{n}.*.json')))
            every |= names
            if int(open(rc_file).read()) and not failed:
                lost.append(mutant)
            for name in failed:
                killed_by[name].add(mutant)
                attributed.add(mutant)
    print(f'{len(attributed)} mutants killed by named test cases, {len(lost)} not attributed '
          f'(a crash or a hang): {" ".join(sorted(lost))}')
    covered, chosen = set(), []
    while covered != attributed:
        best = max(killed_by, key=lambda t: len(killed_by[t] - covered))
        chosen.append(best)
        covered |= killed_by[best]
    for t in chosen:
        alone = [m for m in killed_by[t] if all(m not in killed_by[o] for o in killed_by if o != t)]
        print(f'needed {t}: kills {len(killed_by[t])}, alone {len(alone)}')
    for t in sorted(every - set(chosen)):
        print(f'other  {t}: kills {len(killed_by.get(t, ()))}')


def lines(build, binaries):
    build = os.path.abspath(build)
    root = os.path.dirname(build)
    env = dict(os.environ, QT_QPA_PLATFORM='offscreen')

    def counters():
        return [f for f in glob.glob(build + '/**/*.gcda', recursive=True) if '/tests/' not in f]

    def product_lines():
        ran, files = set(), counters()
        for i in range(0, len(files), 40):
            r = subprocess.run(['gcov', '--json-format', '--stdout'] + files[i:i + 40], cwd=build,
                               capture_output=True, text=True)
            for doc in (d for d in r.stdout.splitlines() if d.startswith('{')):
                for f in json.loads(doc).get('files', []):
                    path = os.path.relpath(os.path.realpath(os.path.join(build, f['file'])), root)
                    if path.startswith(('tests/', '..')) or 'autogen' in path:
                        continue
                    ran |= {f'{path}:{l["line_number"]}' for l in f['lines'] if l['count']}
        return ran

    ran_by = {}
    for b in map(os.path.abspath, binaries):
        listing = subprocess.run([b, '--gtest_list_tests'], capture_output=True, text=True,
                                 env=env).stdout
        suite = ''
        for line in listing.splitlines():
            if not line.startswith(' '):
                suite = line.split()[0]
                continue
            case = suite + line.split()[0]
            for f in counters():
                os.remove(f)
            subprocess.run([b, f'--gtest_filter={case}'], capture_output=True, env=env, timeout=600)
            ran_by[case] = product_lines()
    runs = collections.Counter(l for ls in ran_by.values() for l in ls)
    rows = sorted((sum(runs[l] == 1 for l in ls), len(ls), t) for t, ls in ran_by.items())
    print(' own    ran  test case')
    for own, n, t in rows:
        print(f'{own:4d} {n:6d}  {t}')


if __name__ == '__main__':
    if len(sys.argv) < 3 or sys.argv[1] not in ('run', 'kills', 'lines'):
        sys.exit(__doc__)
    what, args = sys.argv[1], sys.argv[2:]
    if what == 'run':
        sys.exit(1 if run(args[0], args[1:]) else 0)
    kills(args) if what == 'kills' else lines(args[0], args[1:])
