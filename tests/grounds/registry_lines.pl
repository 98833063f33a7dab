# One line a key ("key<TAB>") and a value ("key<TAB>"name"=data") of a registry export, sorted:
# perl registry_lines.pl <EXPORT (as UTF-8) >LINES
#
# Keys and value names are in small letters, long data is in one line, a line end in a text is \n.
# Of a value that stands twice the last one counts, as it does when the file is imported.
use strict;
use warnings;

my (%lines, $key);

sub small {
    my ($text) = @_;
    utf8::decode($text);
    $text = lc $text;
    utf8::encode($text);
    return $text;
}

while (my $line = <STDIN>) {
    $line =~ s/\r?\n$//;
    if ($line =~ /^\[(.+)\]$/) {
        $key = small($1);
        $lines{"$key\t"} //= '';
        next;
    }
    next if !defined $key || $line !~ /^[@"]/;
    until ($line =~ /^(?:@|"(?:[^"\\]|\\.)*")=(?:"(?:[^"\\]|\\.)*"|[^"].*[^\\]|[^"\\]+)$/s) {
        my $more = <STDIN> // die "registry_lines: $key: $line\n";
        $more =~ s/\r?\n$//;
        if ($line =~ s/,\\$/,/) { $more =~ s/^\s+// } else { $line .= '\n' }
        $line .= $more;
    }
    my ($name, $data) = $line =~ /^(@|"(?:[^"\\]|\\.)*")=(.*)$/s;
    $lines{"$key\t" . small($name)} = "=$data";
}
print map { "$_$lines{$_}\n" } sort keys %lines;
