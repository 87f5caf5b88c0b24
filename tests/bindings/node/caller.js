'use strict';
// Makes the calls of vexlor_conformance through the Node package; caller_process.h has the protocol.
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
const readline = require('readline');

const opened = new Map(); // friendly objects by their handles

function exactCall(name, words) {
  const memories = new Map();
  const numbers = new Map(); // what goes through memory of its own type
  const given = [];
  words.forEach((word, i) => {
    if (word[0] === 'n') given.push(Number(word.slice(1)));
    else if (word[0] === 'z') given.push(null);
    else if (word[0] === '=') given.push(given[parseInt(word.slice(1), 10)]);
    else {
      const [digits, offset] = word.slice(1).split('@');
      const bytes = Buffer.from(digits, 'hex');
      memories.set(i, bytes);
      if (exact[name].letters[i] === 'n') numbers.set(i, new Int32Array([bytes.readInt32LE(0)]));
      given.push(numbers.get(i) ?? bytes.subarray(Number(offset)));
    }
  });
  const result = exact[name](...given);
  for (const [i, value] of numbers) memories.get(i).writeInt32LE(value[0]);
  return [shown(result, memories), ...[...memories.values()].map((bytes) => `m${bytes.toString('hex')}`)].join(' ');
}

function shown(result, memories) {
  if (result === undefined) return 'v';
  if (typeof result === 'number') return `n${result}`;
  if (result === null || result === 0n) return 'z';
  // The end of one may be the beginning of another.
  for (const beyond of [0, 1]) {
    for (const [i, bytes] of memories) {
      const offset = Number(result - koffi.address(bytes));
      if (offset >= 0 && offset < bytes.length + beyond) return `p${i}@${offset}`;
    }
  }
  return `t${Buffer.from(koffi.decode(result, 'char', -1), 'latin1').toString('hex')}`;
}

function friendlyArgument(word, kind, base) {
  if (kind === 'table' || kind === 'handle') return opened.get(kind + word);
  if (word[0] === 'n') return Number(word.slice(1)) - (kind === 'pos' && base === 1 ? 1 : 0);
  if (word[0] === 'z') return null;
  const bytes = Buffer.from(word.slice(1), 'hex');
  return kind === 'bytes' || kind === 'block' ? bytes : bytes.toString('latin1');
}

function friendlyOutput(value, kind, place, base) {
  if (kind === 'Table' || kind === 'File') {
    if (value === null) return kind === 'Table' ? 'n0' : 'n-1';
    opened.set(`${kind === 'Table' ? 'table' : 'handle'}n${value.handle}`, value);
    return `n${value.handle}`;
  }
  if (value === null) return 'z';
  if (kind === 'text') return `t${Buffer.from(value, 'latin1').toString('hex')}`;
  if (kind === 'offset') return `p${place}@${value}`;
  return `n${Number(value) + (kind === 'pos' && base === 1 ? 1 : 0)}`;
}

function friendlyCall(main, words) {
  const [name, owner, base, parameters, outputs] = entries[main];
  const given = words.map((word, i) => friendlyArgument(word, parameters[i][1], base));
  const value = owner ? given[0][name](...given.slice(1)) : vexlor32[name](...given);
  const values = outputs.length > 1 ? value : [value];
  const shownOutputs = new Map(outputs.map(([output, kind, place], i) => [output, friendlyOutput(values[i], kind, place, base)]));
  const blocks = parameters.flatMap(([parameter, kind], i) => (kind === 'block' && given[i] ? [[parameter, `t${given[i].toString('hex')}`]] : []));
  const written = [...outputs.filter(([output, kind]) => output !== 'result' && kind === 'text').map(([output]) => output), ...blocks.map(([n]) => n)];
  let result = shownOutputs.get('result');
  if (result === undefined) result = !written.length ? 'v' : shownOutputs.get(written[0]) === 'z' ? 'z' : `p${written[0]}@0`;
  const others = [...shownOutputs, ...blocks].filter(([output, word]) => output !== 'result' && word !== 'z');
  return [result, ...others.map(([output, word]) => `${output}=${word}`)].join(' ');
}

readline.createInterface({ input: process.stdin }).on('line', (line) => {
  const [what, name, ...words] = line.split(' ');
  let answer;
  try {
    if (what === 'enter') {
      process.chdir(Buffer.from(name, 'hex').toString());
      answer = 'ok';
    } else answer = what === 'call' ? exactCall(name, words) : friendlyCall(name, words);
  } catch (error) {
    answer = `!${error}`.replace(/\n/g, ' ');
  }
  process.stdout.write(`${answer}\n`);
});
