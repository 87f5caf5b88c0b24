'use strict';
// Makes the calls of the conformance library (conformance.h) through the Node package.
let vexlor32;
let koffi;
try {
  koffi = require('koffi');
  vexlor32 = require(process.argv[2]);
} catch (error) {
  console.error(`skipped: ${error.message}`);
  process.exit(77);
}
const { exact, entries } = vexlor32;
const library = koffi.load('libvexlor_conformance.so');
const callType = koffi.proto('void VxcCall(const char *name, int count)');
const run = library.func('int vxc_run(int traits, const char *errors, VxcCall *call)');
const isFriendly = library.func('int vxc_is_friendly()')();
const kindOf = library.func('int vxc_kind(int i)');
const number = library.func('int64_t vxc_number(int i)');
const size = library.func('int64_t vxc_size(int i)');
const offset = library.func('int64_t vxc_offset(int i)');
const lend = library.func('void vxc_lend(int i, void *place)');
const gaveNumber = library.func('void vxc_gave_number(int64_t number)');
const gavePlace = library.func('void vxc_gave_place(void *place)');
const gaveText = library.func('void vxc_gave_text(void *text, int64_t size)');
const gaveNull = library.func('void vxc_gave_null()');
const refused = library.func('void vxc_refused(const char *words)');

const [ARRAYS, UNICODE, WIDE] = [2, 4, 8];
const opened = new Map(); // friendly objects by their kinds and numbers
let given = []; // kept until the next call

function lent(i, memory) {
  lend(i, memory);
  return memory;
}

function exactArgument(name, i) {
  const kind = String.fromCharCode(kindOf(i));
  if (kind === 'n') return number(i);
  if (kind === 'z') return null;
  if (kind === '=') return given[number(i)];
  return exact[name].letters[i] === 'n' ? lent(i, new Int32Array(1)) : lent(i, Buffer.alloc(size(i))).subarray(offset(i));
}

function exactCall(name, count) {
  given = [];
  for (let i = 0; i < count; ++i) given.push(exactArgument(name, i));
  const result = exact[name](...given);
  if (typeof result === 'number') gaveNumber(result);
  else if (result !== undefined) gavePlace(result);
}

function friendlyArgument(i) {
  const kind = String.fromCharCode(kindOf(i));
  if (kind === 'n') return number(i);
  if (kind === 'z') return null;
  if (kind === 'T' || kind === 'F') return opened.get(kind + number(i));
  const bytes = lent(i, Buffer.alloc(size(i)));
  return kind === 't' ? bytes.toString('latin1') : kind === 'u' ? bytes.toString() : bytes;
}

function give(value) {
  if (value === null) gaveNull();
  else if (typeof value === 'number' || typeof value === 'boolean') gaveNumber(Number(value));
  else if (typeof value === 'string' || value instanceof Buffer) gaveText(Buffer.from(value, 'latin1'), value.length);
  else {
    opened.set((value instanceof vexlor32.Table ? 'T' : 'F') + value.handle, value);
    gaveNumber(value.handle);
  }
}

function friendlyCall(main, count) {
  const [name, owner, outputs] = entries[main];
  given = Array.from({ length: count }, (_, i) => friendlyArgument(i));
  const value = owner ? given[0][name](...given.slice(1)) : vexlor32[name](...given);
  (outputs > 1 ? value : [value].slice(0, outputs)).forEach(give);
  given.forEach((block, i) => { if (kindOf(i) === 'B'.charCodeAt(0)) give(block); });
}

function call(name, count) {
  try {
    (isFriendly ? friendlyCall : exactCall)(name, count);
  } catch (error) {
    refused(`${error}`);
  }
}

process.exitCode = run(ARRAYS | UNICODE | WIDE, 'TypeError|RangeError|Error: .*closed', koffi.register(call, koffi.pointer(callType)));
