// Light highlighting of SQL: comments, texts, numbers and the words that most dialects share.

const SQL_WORDS = new Set(
  `add after all alter and any array as asc before begin between by call case cast check collate commit
  constraint create cross current_date current_time current_timestamp cursor declare default delete desc
  distinct do each else elsif end except execute exists false fetch for foreign from full function group
  having if immutable in inner insert instead intersect interval into is join key language lateral left like
  limit loop new not null of offset old on or order outer over partition perform plpgsql primary procedure
  raise recursive references replace return returning returns right row rows select set sql stable statement
  table then to trigger true union unique update using values view volatile when where while window with`.split(
    /\s+/,
  ),
);
const SQL_TOKEN =
  /(--[^\n]*|\/\*[\s\S]*?(?:\*\/|$))|('(?:[^']|'')*'?)|("(?:[^"]|"")*"?|`[^`]*`?|\[[\w $]+\])|(\b\d+(?:\.\d+)?\b)|([A-Za-z_][\w$]*)/g;

// Text nodes and spans.
function highlightSql(text) {
  const pieces = [];
  let done = 0;
  for (const match of text.matchAll(SQL_TOKEN)) {
    const [token, comment, literal, , number, word] = match;
    const kind = comment
      ? "comment"
      : literal
        ? "text"
        : number
          ? "number"
          : word && SQL_WORDS.has(word.toLowerCase())
            ? "word"
            : null;
    if (!kind) continue;
    pieces.push(text.slice(done, match.index), h("span", {class: `sql-${kind}`}, token));
    done = match.index + token.length;
  }
  pieces.push(text.slice(done));
  return pieces;
}

function sqlBlock(text) {
  return h("pre", {class: "sql", tabindex: "0"}, h("code", {}, highlightSql(text)));
}
