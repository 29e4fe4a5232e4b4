# What Asciidoctor PDF leaves to a converter of one's own: no paragraph and no item of a list may
# leave a single line on either side of a page break, and the contents stand on the first page, below
# the opening words of the chapter.
class ChapterConverter < (Asciidoctor::Converter.for 'pdf')
  register_for 'pdf'

  # A longer beginning of a paragraph is not moved to the next page for one line that is there.
  MOST_LINES_MOVED = 7

  def convert_paragraph node, opts = nil
    keep_lines node.content, 0
    super
  end

  def convert_list_item node, list, opts = {}
    keep_lines node.text, @theme.list_indent if node.text?
    super
  end

  # The box that keeps a table on one page swallows the space below it.
  def convert_table node
    boxed = !at_page_top? && (node.option? 'unbreakable')
    super
    theme_margin :block, :bottom if boxed
  end

  def start_toc_page node, placement; end

  def allocate_toc doc, levels, cursor, _break_after
    super doc, levels, cursor, false
  end

  def get_entries_for_toc node
    node.context == :document ? node.sections.flat_map(&:sections) : []
  end

  private

  def keep_lines text, left
    return if scratch? || at_page_top?
    extent = dry_run { indent(left) { ink_prose text, margin_bottom: 0, hyphenate: true } }
    return if extent.to.page == extent.from.page
    line = (calc_line_metrics @base_line_height).height
    before = (cursor / line).floor
    behind = ((bounds.height - extent.to.cursor) / line).round
    advance_page if before < 2 || (behind < 2 && before <= MOST_LINES_MOVED)
  end
end
