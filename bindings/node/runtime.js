'use strict';
// Loads the library, and turns JavaScript's values into what it takes and back.
const fs = require('fs');
const path = require('path');
const koffi = require('koffi');

const WINDOWS = process.platform === 'win32';
const LARGEST_ROOM = 2 ** 31;
const LEAST_HOST_ROOM = 2 ** 18; // no program is started with a longer text in its command line or environment

// The library beside this package, or else the one that the loader finds; VEXLOR32_LIBRARY names another.
function libraryPath() {
  if (process.env.VEXLOR32_LIBRARY) return process.env.VEXLOR32_LIBRARY;
  const name = !WINDOWS ? 'libvexlor32.so.5' : process.arch === 'ia32' ? 'Vexlor32.dll' : 'Vexlor64.dll';
  const beside = path.join(__dirname, name);
  return fs.existsSync(beside) ? beside : name;
}

function load() {
  const file = libraryPath();
  try {
    return koffi.load(file);
  } catch (error) {
    throw new Error(`cannot load ${file} into this ${process.arch} program: ${error.message}; VEXLOR32_LIBRARY may name the file`);
  }
}

const library = load();

// Letters of results and arguments. Each argument is checked, because the library trusts what it is given.
const RESULTS = { i: 'int32_t', u: 'uint32_t', p: 'void *', v: 'void' };
const ARGUMENTS = {
  i: ['int32_t', isInteger(-(2 ** 31), 2 ** 31 - 1), 'a signed number of 32 bits'],
  u: ['uint32_t', isInteger(0, 2 ** 32 - 1), 'an unsigned number of 32 bits'],
  t: ['void *', (v) => v === null || (v instanceof Uint8Array && v.includes(0)), 'null or a Buffer that ends with NUL'],
  b: ['void *', (v) => v === null || v instanceof Uint8Array, 'null or a Buffer'],
  y: ['void *', (v) => v === null || v instanceof Uint8Array, 'null or a Buffer'],
  n: ['void *', (v) => v === null || v instanceof Int32Array, 'null or an Int32Array'],
};

function isInteger(least, most) {
  return (v) => Number.isInteger(v) && v >= least && v <= most;
}

function checked(name, result, letters) {
  const kinds = [...letters].map((letter) => ARGUMENTS[letter]);
  const call = library.func(WINDOWS && process.arch === 'ia32' ? '__stdcall' : '__cdecl', name, RESULTS[result], kinds.map((kind) => kind[0]));
  const checkedCall = (...given) => {
    if (given.length !== kinds.length) throw new TypeError(`${name} takes ${kinds.length} arguments, not ${given.length}`);
    kinds.forEach(([, accepts, words], i) => {
      if (!accepts(given[i])) throw new TypeError(`argument ${i + 1} of ${name} must be ${words}`);
    });
    return call(...given);
  };
  return Object.assign(checkedCall, { letters });
}

// Functions by name; each is made when it is first asked for.
function bind(entries) {
  const functions = {};
  for (const [names, result, letters] of entries) {
    for (const name of names.split(' ')) {
      Object.defineProperty(functions, name, {
        configurable: true,
        enumerable: true,
        get() {
          const value = checked(name, result, letters);
          Object.defineProperty(functions, name, { value, enumerable: true });
          return value;
        },
      });
    }
  }
  return functions;
}

// What the friendly functions are made of.

let encoding = 'latin1';

function setEncoding(name) {
  if (!['latin1', 'binary', 'ascii'].includes(name)) throw new RangeError(`${name} is no encoding of single bytes that Buffer knows`);
  encoding = name;
}

function encoded(text) {
  if (text === null) return null;
  if (typeof text !== 'string') throw new TypeError(`a text or null, not ${typeof text}`);
  for (let i = 0; i < text.length; ++i) {
    const code = text.charCodeAt(i);
    if (code === 0) throw new RangeError('the text has a NUL in it');
    if (code > 255) throw new RangeError(`"${text[i]}" is no character of ${encoding}`);
  }
  return Buffer.from(`${text}\0`, encoding);
}

// The code of a character, which may be given as a text of one.
function code(character) {
  if (typeof character === 'number') return character;
  const bytes = encoded(character);
  if (bytes === null || bytes.length !== 2) throw new TypeError('a character or its code');
  return bytes[0];
}

function size(text) {
  return text === null ? 0 : text.length - 1;
}

function hostRoom() {
  return Object.entries(process.env).reduce((most, [name, value]) => Math.max(most, 4 * (name.length + value.length) + 2), LEAST_HOST_ROOM);
}

function destination(room) {
  if (room > LARGEST_ROOM) throw new RangeError(`the result could need ${room} bytes`);
  return Buffer.alloc(Math.max(room, 1));
}

function editable(content, room) {
  if (content === null) return null;
  const bytes = Buffer.alloc(Math.max(content.length, room));
  content.copy(bytes);
  return bytes;
}

// The block from where the call begins; it has to have the bytes that the call needs, in front of it, too.
function within(block, needed, before = 0) {
  if (block === null) return null;
  if (!(block instanceof Uint8Array)) throw new TypeError(`a Uint8Array, not ${typeof block}`);
  const front = Math.max(-before, 0);
  if (block.length < needed + front) throw new RangeError(`${block.length} bytes, where the call needs ${needed + front}`);
  return front === 0 ? block : block.subarray(front);
}

function decoded(bytes) {
  return bytes === null ? null : bytes.toString(encoding, 0, bytes.indexOf(0));
}

function textAt(address) {
  return address === null ? null : Buffer.from(koffi.decode(address, 'char', -1), 'latin1').toString(encoding);
}

function offsetIn(place, address) {
  return address === null || place === null ? null : Number(address - koffi.address(place));
}

class Handle {
  #handle;

  constructor(handle) {
    this.#handle = handle;
  }

  // The object of a handle that a function gave, null for the one that says it failed.
  static of(handle) {
    return handle === this.none ? null : new this(handle);
  }

  get handle() {
    if (this.#handle === this.constructor.none) throw new Error(`the ${this.constructor.name.toLowerCase()} is closed`);
    return this.#handle;
  }

  forget() {
    this.#handle = this.constructor.none;
  }

  [Symbol.dispose ?? Symbol.for('Symbol.dispose')]() {
    if (this.#handle !== this.constructor.none) this.close();
  }
}

module.exports = { bind, setEncoding, encoded, code, size, hostRoom, destination, editable, within, decoded, textAt, offsetIn, Handle };
