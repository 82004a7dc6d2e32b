// Lets a reader filter and sort the table of machines, which can be read without this, too.
(() => {
  const table = document.querySelector(".fleet");
  const rows = [...table.tBodies[0].rows];
  const all = table.caption.textContent;
  const collator = new Intl.Collator("en", { numeric: true, sensitivity: "base" });

  const filter = document.createElement("input");
  filter.type = "search";
  const label = document.createElement("label");
  label.append("Filter ", filter);
  const line = document.createElement("p");
  line.className = "filter";
  line.append(label);
  table.parentElement.before(line);
  table.caption.setAttribute("aria-live", "polite");
  filter.addEventListener("input", () => {
    const words = filter.value.toLowerCase().split(/\s+/);
    let shown = 0;
    for (const row of rows) {
      const text = [...row.cells].map(cell => cell.textContent).join(" ").toLowerCase();
      row.hidden = !words.every(word => text.includes(word));
      document.querySelector(row.querySelector("a").hash).hidden = row.hidden;
      shown += row.hidden ? 0 : 1;
    }
    table.caption.textContent = shown === rows.length ? all : `${shown} of ${all}`;
  });

  // What is not known stays at the end in both directions.
  const sort = (column, turn) => {
    const keys = new Map(rows.map(row => [row, row.cells[column].dataset.key || row.cells[column].textContent]));
    rows.sort((one, other) => {
      const a = keys.get(one), b = keys.get(other);
      return a && b ? turn * collator.compare(a, b) : (b ? 1 : 0) - (a ? 1 : 0);
    });
    table.tBodies[0].append(...rows);
  };
  const heads = [...table.tHead.rows[0].cells];
  heads.forEach((head, column) => {
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = head.textContent;
    button.addEventListener("click", () => {
      const up = head.getAttribute("aria-sort") !== "ascending";
      heads.forEach(other => other.removeAttribute("aria-sort"));
      head.setAttribute("aria-sort", up ? "ascending" : "descending");
      sort(column, up ? 1 : -1);
    });
    head.replaceChildren(button);
  });
})();
